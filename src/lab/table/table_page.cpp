#include "lab/table/table_page.h"

#include <algorithm>
#include <utility>

#include "core/version.h"
#include "lab/page/html_page.h"
#include "lab/table/joint_rows.h"
#include "lab/table/table_page_parts.h"
#include "lab/table/table_page_words.h"
#include "lab/table/table_wording.h"
#include "lab/table/verdict.h"

namespace orvenza {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kNoAnswer = "none";

/// The name of a verdict without Markdown.
std::string Plain(std::string name) {
  std::erase(name, '*');
  return name;
}

std::string Element(const std::string& name, const std::string& text) {
  return "<" + name + ">" + HtmlText(text) + "</" + name.substr(0, name.find(' ')) + ">";
}

/// The places in `all`, from 0, of those of its texts that `isWanted` takes.
template <typename IsWanted>
std::string Places(const Texts& all, IsWanted isWanted) {
  Texts places;
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (isWanted(all[i])) places.push_back(std::to_string(i));
  }
  return Joined(places, " ");
}

bool Contains(const Texts& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// The options of the filters, in their order.
struct Options {
  Texts steps;
  Texts faults;
  Texts ends;
  Texts answers{kNoAnswer};
};

Options OptionsOf(const std::vector<FaultCase>& cases) {
  Options options;
  for (const FaultCase& faultCase : cases) {
    if (!Contains(options.steps, faultCase.step.name)) options.steps.push_back(faultCase.step.name);
    if (!Contains(options.faults, faultCase.fault.name)) options.faults.push_back(faultCase.fault.name);
  }
  for (const Verdict verdict : AllVerdicts()) options.ends.push_back(Plain(NameOf(verdict)));
  for (const Answer answer : AllAnswers()) options.answers.push_back(NameOf(answer));
  return options;
}

/// "all", "by day", "contract", "contract by day, AskInDoubt".
std::string RunsText(const std::bitset<kRuns>& runs) {
  const auto hours = [](bool day, bool midnight) -> std::string {
    return day && midnight ? "" : day ? " by day" : " at 23:59:50";
  };
  if (runs.all()) return "all";
  if (runs[0] == runs[2] && runs[1] == runs[3]) return hours(runs[0], runs[1]).substr(1);
  Texts texts;
  if (runs[0] || runs[1]) texts.push_back("contract" + hours(runs[0], runs[1]));
  if (runs[2] || runs[3]) texts.push_back("AskInDoubt" + hours(runs[2], runs[3]));
  return Joined(texts, ", ");
}

const char* ClassOf(Verdict verdict) {
  return verdict == Verdict::kFine ? "good" : IsForbidden(verdict) ? "bad" : "warn";
}

/// The end, with a link to the rule that explains it.
std::string EndCell(const CaseOutcome& outcome) {
  constexpr std::string_view kRule = ", rule ";
  std::string text = Plain(EndText(outcome));
  if (const std::size_t rule = text.find(kRule); rule != std::string::npos) {
    const std::string number = text.substr(rule + kRule.size());
    text = text.substr(0, rule) + ", <a href=\"#rule-" + number + "\">rule " + number + "</a>";
  }
  return "<td class=\"" + std::string(ClassOf(outcome.verdict)) + "\">" + text + "</td>";
}

std::string LogCell(const CaseWays& ways) {
  std::string lines;
  for (const std::string& line : ways.logged) lines += Element("span", line);
  for (const std::string& line : ways.sometimes) lines += Element("span", "(" + line + ")");
  return "<td class=\"log\">" + lines + "</td>";
}

std::string RowText(const JointEnd& end, const Options& options) {
  Texts answers;
  for (const std::vector<Answer>& list : end.ways.answers) {
    if (list.empty()) answers.emplace_back(kNoAnswer);
    for (const Answer answer : list) answers.push_back(NameOf(answer));
  }
  Texts runs;
  for (std::size_t run = 0; run < kRuns; ++run) {
    if (end.runs[run]) runs.push_back(std::to_string(run));
  }
  const std::string name = Plain(NameOf(end.outcome.verdict));
  return "<tr data-e=\"" + Places(options.ends, [&](const std::string& n) { return n == name; }) +
         "\" data-a=\"" +
         Places(options.answers, [&](const std::string& a) { return Contains(answers, a); }) +
         "\" data-r=\"" + Joined(runs, " ") + "\">" + Element("td", AnswersText(end.ways, end.any)) +
         Element("td", PaperText(end.outcome)) + Element("td", NameOf(end.outcome.file)) +
         EndCell(end.outcome) + Element("td", RunsText(end.runs)) + LogCell(end.ways) + "</tr>\n";
}

std::string GroupText(const JointRow& row, const Options& options) {
  const auto isIn = [&](const std::string& name) {
    return Contains(row.faults.once, name) || Contains(row.faults.eachTime, name);
  };
  std::string text = "<tbody data-f=\"" + Places(options.faults, isIn) + "\"><tr>" +
                     Element("th colspan=\"6\" scope=\"rowgroup\"", FaultText(row.faults)) + "</tr>\n";
  for (const JointEnd& end : EndsOf(row)) text += RowText(end, options);
  return text + "</tbody>\n";
}

std::string SectionText(const JointSection& section, const Options& options) {
  std::string title = Joined(section.steps, "; ");
  title[0] = static_cast<char>(title[0] - 'a' + 'A');
  std::string text =
      "<section data-s=\"" +
      Places(options.steps, [&](const std::string& name) { return Contains(section.steps, name); }) +
      "\">\n" + Element("h2", title) + "\n<table><thead><tr>";
  for (const char* column : {"Answers", "The customer gets", "File", "End", "Way, hour", "Error log"})
    text += Element("th scope=\"col\"", column);
  text += "</tr></thead>\n";
  for (const JointRow& row : section.rows) text += GroupText(row, options);
  return text + "</table>\n</section>\n";
}

std::string Choice(const std::string& name, const std::string& label, const Texts& options) {
  std::string text = "<div><label for=\"" + name + "\">" + label + "</label><select id=\"" + name +
                     "\" name=\"" + name + "\"><option value=\"\">all</option>\n";
  for (const std::string& option : options) text += Element("option", option);
  return text + "</select></div>\n";
}

/// The filters. The script shows them.
std::string FilterText(const Options& options) {
  return "<form id=\"filters\" hidden=\"hidden\" autocomplete=\"off\">\n" +
         Choice("step", "Step", options.steps) + Choice("fault", "What goes wrong", options.faults) +
         Choice("end", "End", options.ends) + Choice("answer", "Answer", options.answers) +
         Choice("way", "Way of working", {"contract", "AskInDoubt"}) +
         Choice("hour", "Hour", {"by day", "at 23:59:50"}) +
         "<div><label for=\"text\">Text</label><input id=\"text\" name=\"text\" type=\"search\" /></div>\n"
         "<div><button id=\"all\" type=\"button\">Show all</button></div>\n</form>\n";
}

/// What the ends mean, and the number of ways to each in the four runs.
std::string EndsText(const PlayedCases& contract, const PlayedCases& askInDoubt) {
  std::string text =
      "<p>The numbers count the ways in which a ticket came to each end.</p>\n"
      "<div class=\"wide\" tabindex=\"0\" role=\"region\" "
      "aria-label=\"Ends\"><table><thead><tr><th>End</th><th>Meaning</th><th>Contract by day</th>"
      "<th>Contract at 23:59:50</th><th>AskInDoubt by day</th><th>AskInDoubt at "
      "23:59:50</th></tr></thead>\n<tbody>\n";
  for (const Verdict verdict : AllVerdicts()) {
    text += "<tr><td class=\"" + std::string(ClassOf(verdict)) + "\">" + Plain(NameOf(verdict)) + "</td>" +
            Element("td", MeaningOf(verdict));
    for (const auto* cases :
         {&contract.byDay, &contract.atMidnight, &askInDoubt.byDay, &askInDoubt.atMidnight})
      text += Element("td", std::to_string(CountEnds(*cases, verdict)));
    text += "</tr>\n";
  }
  return text + "</tbody></table></div>\n";
}

std::string RulesText() {
  std::string text = "<h2>Rules of the contract</h2>\n<ol>\n";
  for (std::size_t i = 0; i < Rules().size(); ++i)
    text += Element("li id=\"rule-" + std::to_string(i + 1) + "\"", Rules()[i].reason) + "\n";
  return text + "</ol>\n";
}

}  // namespace

std::string TablePage(const PlayedCases& contract, const PlayedCases& askInDoubt) {
  const Options options = OptionsOf(contract.byDay);
  std::string sections;
  std::size_t rows = 0;
  for (const JointSection& section : JointSections(contract, askInDoubt)) {
    sections += SectionText(section, options);
    for (const JointRow& row : section.rows) rows += EndsOf(row).size();
  }
  const std::string body = "<h1>The failure table</h1>\n" + std::string(kTablePageIntroduction) +
                           FilterText(options) + "<p id=\"shown\" role=\"status\">" + std::to_string(rows) +
                           " rows.</p>\n<main>\n" + sections + "</main>\n<h2 id=\"words\">Terms</h2>\n" +
                           EndsText(contract, askInDoubt) + std::string(kTablePageWords) + RulesText() +
                           Element("p", std::string("Written by orvenza-lab ") + kVersionText + ".") + "\n";
  return DocumentOf(
      {"The failure table of Orvenza", std::string(kTablePageStyle), body, std::string(kTablePageScript)});
}

}  // namespace orvenza
