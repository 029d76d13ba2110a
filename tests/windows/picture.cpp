#include "windows/picture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/windows/wide.h"
#include "windows/person.h"

namespace orvenza::test {
namespace {

constexpr int kLooks = 40;
constexpr DWORD kBetweenLooks = 50;
/// Per test: some show every text repeatedly.
constexpr int kMostPictures = 20;

/// A bitmap with 24 bits per pixel, bottom-up; each row is padded to a multiple of four bytes.
struct Bitmap {
  BITMAPINFOHEADER header{};
  std::vector<char> pixels;
};

Bitmap Capture(const RECT& place) {
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  Bitmap result;
  result.header = {sizeof(BITMAPINFOHEADER), width, height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
  result.pixels.resize(static_cast<std::size_t>((width * 3 + 3) / 4 * 4) * static_cast<std::size_t>(height));
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  SelectObject(memory, before);
  GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), result.pixels.data(),
            reinterpret_cast<BITMAPINFO*>(&result.header), DIB_RGB_COLORS);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return result;
}

/// The screen's content once it no longer changes: a window may exist before it is drawn.
Bitmap CaptureSettled(const RECT& place) {
  Bitmap last = Capture(place);
  for (int look = 0; look < kLooks; ++look) {
    Sleep(kBetweenLooks);
    Bitmap next = Capture(place);
    if (next.pixels == last.pixels) break;
    last = std::move(next);
  }
  return last;
}

void Save(const Bitmap& bitmap, const std::filesystem::path& path) {
  BITMAPFILEHEADER file{};
  file.bfType = 0x4D42;  // "BM"
  file.bfOffBits = sizeof file + sizeof bitmap.header;
  file.bfSize = file.bfOffBits + static_cast<DWORD>(bitmap.pixels.size());
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(&file), sizeof file);
  out.write(reinterpret_cast<const char*>(&bitmap.header), sizeof bitmap.header);
  out.write(bitmap.pixels.data(), static_cast<std::streamsize>(bitmap.pixels.size()));
}

/// The folder for pictures; empty if none are wanted.
std::filesystem::path Folder() {
  wchar_t folder[MAX_PATH];
  const DWORD length = GetEnvironmentVariableW(L"ORVENZA_TEST_PICTURES", folder, MAX_PATH);
  return length < MAX_PATH ? std::wstring(folder, length) : std::wstring();
}

}  // namespace

void TakePicture(const RECT& place, const wchar_t* name) {
  static std::string lastTest;
  static int count = 0;
  const std::filesystem::path folder = Folder();
  if (folder.empty()) return;
  const testing::TestInfo& info = *testing::UnitTest::GetInstance()->current_test_info();
  const std::string test = std::string(info.test_suite_name()) + "." + info.name();
  count = test == lastTest ? count + 1 : 1;
  lastTest = test;
  if (count > kMostPictures) return;
  std::filesystem::create_directories(folder);
  SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, 0);  // a control below the pointer would look highlighted
  Save(CaptureSettled(place), folder / (test + "-" + std::to_string(count) + "-" + ToUtf8(name) + ".bmp"));
}

void TakePicture(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  TakePicture(place, ClassOf(window).c_str());
}

}  // namespace orvenza::test
