#include "ui/windows/clipboard.h"

#include <cstring>

#include "platform/windows/unique_handle.h"
#include "platform/windows/wide.h"

namespace orvenza {
namespace {

struct GlobalMemoryTraits {
  using Value = HGLOBAL;
  static Value Empty() { return nullptr; }
  static void Close(Value value) { GlobalFree(value); }
};
using GlobalMemory = Unique<GlobalMemoryTraits>;

GlobalMemory MemoryWith(const std::wstring& text) {
  const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
  GlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, size));
  if (!memory.Valid()) return memory;
  std::memcpy(GlobalLock(memory.Get()), text.c_str(), size);
  GlobalUnlock(memory.Get());
  return memory;
}

}  // namespace

bool CopyToClipboard(HWND owner, const std::string& text) {
  GlobalMemory memory = MemoryWith(ToWide(text));
  if (!memory.Valid() || !OpenClipboard(owner)) return false;
  EmptyClipboard();
  const bool copied = SetClipboardData(CF_UNICODETEXT, memory.Get()) != nullptr;
  if (copied) memory.Release();  // The system owns it now.
  CloseClipboard();
  return copied;
}

}  // namespace orvenza
