#include "windows/register_bench.h"

#include "platform/windows/wide.h"

namespace orvenza::test {

std::string WholeText(HWND window) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return ToUtf8(text);
}

std::string ClipboardText() {
  if (!OpenClipboard(nullptr)) return {};
  std::string text;
  if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
    text = ToUtf8(static_cast<const wchar_t*>(GlobalLock(data)));
    GlobalUnlock(data);
  }
  CloseClipboard();
  return text;
}

std::vector<RollLine> Receipt(int number, bool voided) {
  std::vector<RollLine> lines;
  for (const char* text :
       {"            NEGOZIO DI PROVA", "         REGISTRATORE SIMULATO",
        "                                    EURO", "CAFFÈ                               1,20",
        "BRIOCHE ALLA CREMA                  1,50", "TOTALE COMPLESSIVO                  2,70",
        "CONTANTI                            5,00", "RESTO                               2,30"}) {
    lines.push_back({text, voided});
  }
  lines.push_back({voided ? "             SCONTRINO ANNULLATO"
                          : "22/11/2026 09:00          SCONTRINO N. " + std::to_string(number),
                   voided});
  lines.push_back({std::string(40, '-'), false});
  return lines;
}

void RegisterBench::Enter() {
  window.BringBack();
  Await("the register's window", [this] { return IsReady(window.Handle()); });
}

void RegisterBench::AwaitFocus(int id) {
  Await("the focus", [=, this] { return FocusedId(window.Handle()) == id; });
}

void RegisterBench::TabTo(int id) {
  for (int i = 0; i < 20 && FocusedId(window.Handle()) != id; ++i) {
    const HWND before = FocusOf(window.Handle());
    Press(VK_TAB);
    Await("the next control", [&] { return FocusOf(window.Handle()) != before; });
  }
  AwaitFocus(id);
}

void RegisterBench::AwaitText(int id, const std::string& text) {
  Await(text.c_str(), [&] { return Text(id) == text; });
}

}  // namespace orvenza::test
