#include "tickets/document_progress.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace orvenza {

void PrintTo(const DocumentProgress& progress, std::ostream* out) {
  *out << "complete " << progress.Complete() << ", paid " << progress.Paid();
}

}  // namespace orvenza

namespace orvenza::test {
namespace {

using Types = std::vector<std::string>;

DocumentProgress After(const Types& types, DocumentProgress progress = {}) {
  std::size_t number = progress.Complete();
  for (const std::string& type : types) progress.Done(++number, type);
  return progress;
}

TEST(DocumentProgress, SaysWhereTheLastCompleteDocumentEnds) {
  const struct {
    Types types;
    DocumentProgress progress;
  } rows[] = {
      {{}, {0, 0}},
      {{"1", "3", "9", "20", "28"}, {0, 0}},
      {{"1", "2"}, {0, 2}},
      {{"1", "5"}, {0, 2}},
      {{"1", "15"}, {0, 2}},
      {{"1", "2", "14"}, {0, 3}},
      {{"1", "2", "2", "14"}, {0, 4}},
      {{"1", "2", "1"}, {2, 0}},
      {{"1", "2", "14", "1", "1"}, {3, 0}},
      {{"1", "2", "1", "2"}, {2, 4}},
      {{"1", "4"}, {2, 0}},
      {{"1", "2", "1", "4"}, {4, 0}},
      {{"29", "30"}, {0, 0}},
      {{"29", "30", "31"}, {3, 0}},
      {{"34"}, {1, 0}},
      {{"35", "34"}, {2, 0}},
      {{"1", "2", "34"}, {3, 0}},
      {{"21"}, {1, 0}},
      {{"22"}, {1, 0}},
      {{"32"}, {1, 0}},
      {{"1", "2", "32"}, {3, 0}},
      {{"26"}, {0, 0}},
      {{"33"}, {0, 0}},
      {{"1", "2", "26"}, {2, 0}},
      {{"1", "2", "33", "1"}, {2, 0}},
      {{"99", ""}, {0, 0}},
  };
  for (const auto& row : rows)
    EXPECT_EQ(After(row.types), row.progress) << ::testing::PrintToString(row.types);
}

TEST(DocumentProgress, APaymentIsCompleteUnlessAnotherOneFollows) {
  const DocumentProgress paid(1, 4);
  for (const char* type : {"2", "5", "15", "14", "4"}) EXPECT_EQ(paid.CompleteBefore(type), 1U) << type;
  for (const char* type : {"1", "26", "29", "31", "34", "21", "28", "99"})
    EXPECT_EQ(paid.CompleteBefore(type), 4U) << type;
  for (const char* type : {"1", "2"}) EXPECT_EQ(DocumentProgress(3, 0).CompleteBefore(type), 3U) << type;
}

TEST(DocumentProgress, TheLineThatADivisionIsForBeginsTheNextReceipt) {
  DocumentProgress progress = After({"1", "2", "1", "1"});
  progress.Divided(5);
  EXPECT_EQ(progress, DocumentProgress(4, 0));
  progress.Done(5, "1");
  progress.Done(6, "2");
  EXPECT_EQ(progress, DocumentProgress(4, 6));
}

}  // namespace
}  // namespace orvenza::test
