#include "standin/registration.h"

#include <stdexcept>
#include <vector>

#include "standin/type_library.h"

namespace orvenza::test {
namespace {

const std::wstring kClasses = L"Software\\Classes\\";

std::wstring ProgIdKey() { return kClasses + kProgId; }

std::wstring ClassName() {
  wchar_t text[40];
  ::StringFromGUID2(kStandInClass, text, 40);
  return text;
}

std::wstring ClassKey() { return kClasses + L"CLSID\\" + ClassName(); }

/// The user's classes. Under Wine also the machine's: Wine 8 finds only those, and its registry belongs to a
/// single user.
std::vector<HKEY> Roots() {
  std::vector<HKEY> roots{HKEY_CURRENT_USER};
  const HMODULE system = ::GetModuleHandleW(L"ntdll.dll");
  if (::GetProcAddress(system, "wine_get_version") != nullptr) roots.push_back(HKEY_LOCAL_MACHINE);
  return roots;
}

/// The default value of a key; empty if there is none.
std::wstring Read(HKEY root, const std::wstring& key) {
  wchar_t text[100];
  DWORD size = sizeof text;
  const LSTATUS result = ::RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text, &size);
  return result == ERROR_SUCCESS ? text : L"";
}

void Write(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  if (::RegSetKeyValueW(root, key.c_str(), name, REG_SZ, text.c_str(), size) != ERROR_SUCCESS) {
    throw std::runtime_error("the stand-in cannot be registered");
  }
}

void Register(HKEY root, const std::wstring& library) {
  const std::wstring present = Read(root, ProgIdKey() + L"\\CLSID");
  if (!present.empty() && present != ClassName()) {
    throw std::runtime_error("another link control is registered for this user");
  }
  Write(root, ProgIdKey(), nullptr, L"Orvenza stand-in control");
  Write(root, ProgIdKey() + L"\\CLSID", nullptr, ClassName());
  Write(root, ClassKey(), nullptr, L"Orvenza stand-in control");
  Write(root, ClassKey() + L"\\ProgID", nullptr, kProgId);
  Write(root, ClassKey() + L"\\Control", nullptr, L"");
  constexpr DWORD kStatus = OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;
  Write(root, ClassKey() + L"\\MiscStatus", nullptr, std::to_wstring(kStatus));
  Write(root, ClassKey() + L"\\InprocServer32", nullptr, library);
  Write(root, ClassKey() + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
}

}  // namespace

void RegisterStandIn(const std::wstring& library) {
  for (const HKEY root : Roots()) Register(root, library);
}

void UnregisterStandIn() {
  for (const HKEY root : Roots()) {
    if (Read(root, ProgIdKey() + L"\\CLSID") == ClassName()) ::RegDeleteTreeW(root, ProgIdKey().c_str());
    ::RegDeleteTreeW(root, ClassKey().c_str());
  }
}

std::wstring StandInLibraryPath() {
  wchar_t path[MAX_PATH];
  const DWORD length = ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::wstring program(path, length);
  return program.substr(0, program.rfind(L'\\') + 1) + L"orvenza_standin.dll";
}

}  // namespace orvenza::test
