#include "app/trace/transcript_text.h"

#include <gtest/gtest.h>

namespace orvenza::test {
namespace {

TEST(Printable, ShowsEveryByteOnOneLine) {
  EXPECT_EQ(Printable("a\r\n\x7F"), "a<0D><0A><7F>");
  EXPECT_EQ(Printable("Caff\xE8"), "Caffè");
  EXPECT_EQ(Printable("Caffè"), "Caffè");
}

TEST(ShownPath, LeavesTheProgramFolderOut) {
  EXPECT_EQ(ShownPath("C:\\Orvenza\\data\\1.txt", "C:\\Orvenza"), "data\\1.txt");
  EXPECT_EQ(ShownPath("C:\\Orvenza2\\1.txt", "C:\\Orvenza"), "C:\\Orvenza2\\1.txt");
  EXPECT_EQ(ShownPath("D:\\a\n", "C:\\Orvenza"), "D:\\a<0A>");
}

}  // namespace
}  // namespace orvenza::test
