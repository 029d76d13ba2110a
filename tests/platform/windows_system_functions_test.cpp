#include "platform/windows/system_functions.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/windows/program_place.h"
#include "platform/windows/wide.h"

namespace orvenza::test {
namespace {

using CountType = DWORD(WINAPI*)();

TEST(SystemFunctions, AreThoseOfTheSystem) {
  const auto count = FindFunction<CountType>(L"winmm.dll", "timeGetTime");
  ASSERT_NE(count, nullptr);
  EXPECT_NE(count(), 0U);
  EXPECT_EQ(FindFunction<CountType>(L"winmm.dll", "noSuchFunction"), nullptr);
  EXPECT_EQ(FindFunction<CountType>(L"no_such_library.dll", "timeGetTime"), nullptr);
}

TEST(SystemFunctions, AreNotTakenFromALibraryBesideTheProgram) {
  wchar_t folder[MAX_PATH];
  GetSystemDirectoryW(folder, MAX_PATH);
  const std::wstring planted = ToWide(HomeFolder()) + L"\\orvenza_planted.dll";
  ASSERT_TRUE(CopyFileW((std::wstring(folder) + L"\\winmm.dll").c_str(), planted.c_str(), FALSE));
  EXPECT_EQ(FindFunction<CountType>(L"orvenza_planted.dll", "timeGetTime"), nullptr);
  // Given the plain name, the system would find it there.
  const HMODULE found = LoadLibraryW(L"orvenza_planted.dll");
  EXPECT_NE(found, nullptr);
  FreeLibrary(found);
  DeleteFileW(planted.c_str());
}

}  // namespace
}  // namespace orvenza::test
