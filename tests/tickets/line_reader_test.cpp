#include "tickets/line_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/failure_of.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"

namespace orvenza::test {
namespace {

using Lines = std::vector<std::string>;

/// Size of the pieces in which the reader reads the file.
constexpr std::size_t kPiece = 64 * 1024;

Lines ReadAll(LineReader& reader) {
  Lines lines;
  for (std::string line; reader.ReadLine(line);) lines.push_back(line);
  return lines;
}

Lines LinesOf(const std::string& content) {
  MemoryFiles files;
  files.content["ticket.txt"] = content;
  LineReader reader(files.OpenForReading("ticket.txt"));
  return ReadAll(reader);
}

/// A file that is read in the smallest possible pieces.
class ByteByByte : public ByteReader {
 public:
  explicit ByteByByte(std::string text) : text_(std::move(text)) {}
  std::size_t Read(char* buffer, std::size_t) override {
    if (at_ == text_.size()) return 0;
    *buffer = text_[at_++];
    return 1;
  }

 private:
  std::string text_;
  std::size_t at_ = 0;
};

struct Case {
  const char* name;
  std::string content;
  Lines lines;
};

const Case kCases[] = {
    {"CR LF", "1;a;\r\n2;b;\r\n", {"1;a;", "2;b;"}},
    {"LF", "1;a;\n2;b;\n", {"1;a;", "2;b;"}},
    {"lone CR", "1;a;\r2;b;\r", {"1;a;", "2;b;"}},
    {"mixed", "a\rb\r\nc\nd\r\ne", {"a", "b", "c", "d", "e"}},
    {"no end at the last line", "a\r\nb", {"a", "b"}},
    {"one line without end", "a", {"a"}},
    {"empty file", "", {}},
    {"only a line end", "\r\n", {""}},
    {"only a lone CR", "\r", {""}},
    {"empty lines", "\n\na\n\n", {"", "", "a", ""}},
    {"two CR before LF", "a\r\r\nb", {"a", "", "b"}},
    {"LF before CR", "a\n\rb", {"a", "", "b"}},
    {"NULs", std::string("a\0b\0\nc\0", 7), {std::string("a\0b\0", 4), std::string("c\0", 2)}},
    {"other control characters", "a\tb\x1a\x7f\n\xe0\xff", {"a\tb\x1a\x7f", "\xe0\xff"}},
};

TEST(LineReader, EndsLinesAtCrLfAndLfAndLoneCr) {
  for (const Case& row : kCases) EXPECT_EQ(LinesOf(row.content), row.lines) << row.name;
}

TEST(LineReader, ReadsTheSameLinesFromTheSmallestPieces) {
  for (const Case& row : kCases) {
    LineReader reader(std::make_unique<ByteByByte>(row.content));
    EXPECT_EQ(ReadAll(reader), row.lines) << row.name;
  }
}

TEST(LineReader, TakesCrAtTheEndOfAPieceAndLfInTheNextAsOneLineEnd) {
  const std::string filling(kPiece - 1, 'x');
  EXPECT_EQ(LinesOf(filling + "\r\nb\r\n"), (Lines{filling, "b"}));
  EXPECT_EQ(LinesOf(filling + "\r\n"), Lines{filling});
  EXPECT_EQ(LinesOf(filling + "\r\rb"), (Lines{filling, "", "b"}));
}

TEST(LineReader, PutsALineTogetherThatSpansPieces) {
  const std::string longLine(3 * kPiece + 7, 'y');
  EXPECT_EQ(LinesOf("a\n" + longLine + "\nb"), (Lines{"a", longLine, "b"}));
}

TEST(LineReader, StaysAtTheEnd) {
  LineReader reader(std::make_unique<ByteByByte>("a"));
  std::string line;
  EXPECT_TRUE(reader.ReadLine(line));
  EXPECT_FALSE(reader.ReadLine(line));
  EXPECT_FALSE(reader.ReadLine(line));
  EXPECT_EQ(line, "") << "nothing is left of the line before";
}

TEST(LineReader, KeepsLinesUpToItsLimit) {
  LineReader reader(std::make_unique<TextBytes>(std::string(3 * kPiece, 'y') + "\nabcde\nabcd\n"), 4);
  std::string line;
  EXPECT_TRUE(reader.ReadLine(line));
  EXPECT_EQ(line, "yyyy");
  EXPECT_TRUE(reader.WasCut());
  EXPECT_TRUE(reader.ReadLine(line));
  EXPECT_EQ(line, "abcd");
  EXPECT_TRUE(reader.WasCut());
  EXPECT_TRUE(reader.ReadLine(line));
  EXPECT_EQ(line, "abcd");
  EXPECT_FALSE(reader.WasCut());
}

TEST(LineReader, PassesOnAReadFailureInTheMiddle) {
  MemoryFiles memory;
  memory.content["ticket.txt"] = "1;a;\r\n2;b;\r\n";
  FaultyFiles files(memory);
  files.FailReadAfter(8, error_number::kDeviceError);
  LineReader reader(files.OpenForReading("ticket.txt"));
  std::string line;
  EXPECT_TRUE(reader.ReadLine(line));
  EXPECT_EQ(line, "1;a;");
  EXPECT_EQ(FailureOf([&] { reader.ReadLine(line); }), "57 Device I/O error ( ticket.txt )");
}

}  // namespace
}  // namespace orvenza::test
