#include "lab/table/table_page_words.h"

namespace orvenza {

std::string MeaningOf(Verdict verdict) {
  switch (verdict) {
    case Verdict::kFine: return "Everything that the ticket prints was printed once.";
    case Verdict::kInDoubt: return "The receipt was printed, but the file is in the abort folder.";
    case Verdict::kTwiceByChoice: return "More was printed than the ticket says, because of an answer.";
    case Verdict::kLostByChoice:
      return "The customer has no receipt, or one that lacks a line, because of an answer.";
    case Verdict::kAsksOn: return "The connector asks again after every answer, as long as the fault lasts.";
    case Verdict::kTwice: return "More was printed than the ticket says, and nobody chose that.";
    case Verdict::kLost:
      return "The customer has no receipt, or one that lacks a line, and nobody chose that.";
    case Verdict::kHang: return "The connector goes on without an end and without a question.";
  }
  return {};
}

}  // namespace orvenza
