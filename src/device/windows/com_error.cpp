#include "device/windows/com_error.h"

#include <cstdio>
#include <iterator>

#include "platform/system_error.h"
#include "platform/windows/wide.h"

namespace orvenza {
namespace {

/// Descriptions that support must be able to act on, independent of the system's language.
const wchar_t* OwnDescription(HRESULT result) {
  switch (result) {
    case CO_E_CLASSSTRING: return L"not registered";
    case REGDB_E_CLASSNOTREG: return L"not registered for 32-bit programs";
    case CO_E_DLLNOTFOUND: return L"its library cannot be loaded";
    case CLASS_E_NOTLICENSED: return L"not licensed on this PC";
    case RPC_E_DISCONNECTED: return L"the control is gone";
    default: break;
  }
  if (result == HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND)) return L"its library cannot be loaded";
  if (result == HRESULT_FROM_WIN32(ERROR_BAD_EXE_FORMAT)) return L"its library is not for 32-bit programs";
  return nullptr;
}

std::wstring StandardDescriptionOf(HRESULT result) {
  if (const wchar_t* own = OwnDescription(result)) return own;
  wchar_t text[256];
  const DWORD length =
      ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                       static_cast<DWORD>(result), 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  return {text, length};
}

/// On one line, without a trailing full stop.
std::wstring OneLine(std::wstring text) {
  for (wchar_t& character : text) {
    if (character < L' ') character = L' ';
  }
  const auto last = text.find_last_not_of(L" .");
  text.resize(last == std::wstring::npos ? 0 : last + 1);
  return text;
}

}  // namespace

std::string DescribeResult(HRESULT result, std::wstring_view description) {
  char number[16];
  std::snprintf(number, sizeof number, "0x%08lX", static_cast<unsigned long>(result));
  const std::wstring text =
      OneLine(description.empty() ? StandardDescriptionOf(result) : std::wstring(description));
  return text.empty() ? number : number + std::string(" ") + ToUtf8(text);
}

bool MeansLost(HRESULT result) {
  switch (result) {
    case RPC_E_DISCONNECTED:
    case RPC_E_SERVER_DIED:
    case RPC_E_SERVER_DIED_DNE:
    case RPC_E_INVALID_OBJECT:
    case CO_E_OBJNOTCONNECTED:
    case CO_E_RELEASED: return true;
    default:
      return result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE) ||
             result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED);
  }
}

void CheckCreation(HRESULT result, const char* step) {
  if (FAILED(result)) {
    throw SystemError(error_number::kCannotCreateObject, std::string(step) + ": " + DescribeResult(result));
  }
}

}  // namespace orvenza
