#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lab/table/table_rows.h"

namespace orvenza {

// The words of the failure table.

/// All verdicts, the forbidden ones last.
std::vector<Verdict> AllVerdicts();

std::string NameOf(Verdict verdict);
std::string NameOf(FileEnd file);
std::string NameOf(Claim claim);

std::vector<Claim> AllClaims();

/// The answers that rows show.
std::vector<Answer> AllAnswers();

/// "" for an answer that no row shows.
std::string NameOf(Answer answer);

/// What the customer receives: "1 whole, 2 voided".
std::string PaperText(const CaseOutcome& outcome);

/// The verdict and, if it is forbidden, the rule that explains it: "**lost**, rule 4".
std::string EndText(const CaseOutcome& outcome);

/// Answers in order: "closed → Stampato"; "none" if there are none.
std::string AnswerText(const std::vector<Answer>& answers);

/// All lists of answers; "any" if there are several and all lead to the `onlyOutcome` of the row.
std::string AnswersText(const CaseWays& ways, bool onlyOutcome);

/// The faults of a row: "once or each time: ERR03 to 05; power cut".
std::string FaultText(const TableRow& row);

std::string Joined(const std::vector<std::string>& texts, std::string_view separator);

}  // namespace orvenza
