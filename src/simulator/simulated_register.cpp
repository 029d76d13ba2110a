#include "simulator/simulated_register.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

#include "device/logo_check.h"
#include "simulator/calendar.h"
#include "simulator/command_fields.h"
#include "simulator/command_layouts.h"
#include "simulator/paper_layout.h"
#include "simulator/register_replies.h"

namespace orvenza {
/// The handler of a group of command codes, which are separated by single blanks.
struct SimulatedRegister::Rule {
  std::string_view codes;
  std::string (SimulatedRegister::*run)(CommandFields&);
  bool prints = true;
};

const SimulatedRegister::Rule* SimulatedRegister::FindRule(std::string_view code) {
  using R = SimulatedRegister;
  static constexpr Rule kRules[] = {
      {"1003 1004 1005", &R::Sell},
      {"1009 1010 1011 1015 1016 1017", &R::TakeBack},
      {"1021 1022 1023 1069", &R::ChangeItem},
      {"1024 1025 1026 1070", &R::ChangeTotal},
      {"1050", &R::Subtotal},
      {"1036 1044 1045 1046 1071 1072 1073", &R::Pay},
      {"1028", &R::Void},
      {"1058 1062 1066 1081 1084", &R::PrintText},
      {"1067 1068 1082", &R::SetFootLine, false},
      {"1063", &R::OpenDocument},
      {"1064", &R::PrintInDocument},
      {"1065", &R::CloseDocument},
      {"1031 1032 1039 1040", &R::MoveCash},
      {"2001 2002 2003 2004 2005 2006 2007 2008 2009 2010 2011 2012", &R::Report},
      {"3001 3002", &R::FiscalClosure},
      {"1149", &R::Restart, false},
      {"1999", &R::Identity, false},
      {"3217", &R::Status, false},
      {"4201", &R::TimeOfDay, false},
      {"4052", &R::LogoRow, false},
      {"1047 1048 1049 1051 1055 1056 1075 1076 1077 1078 1083 1148", &R::Accept, false},
  };
  const bool isCode = code.size() == 4 && code.find(' ') == std::string_view::npos;
  const auto found = std::find_if(std::begin(kRules), std::end(kRules), [code](const Rule& rule) {
    return rule.codes.find(code) != std::string_view::npos;
  });
  return isCode && found != std::end(kRules) ? &*found : nullptr;
}

SimulatedRegister::SimulatedRegister(const Clock& clock, PaperRoll& paper, RegisterProfile profile)
    : clock_(clock),
      paper_(paper),
      profile_(std::move(profile)),
      clockStart_(Later(clock.Now(), profile_.clockAhead)),
      clockStartUptime_(clock.Uptime()) {}

std::string SimulatedRegister::Execute(const std::string& command) {
  const Rule* rule = FindRule(std::string_view(command).substr(0, 4));
  if (rule == nullptr) return Refusal(refusal::kUnknown);
  if (rule->prints && paperOut_ && commandHeld_) return PaperError();
  CommandFields fields(command);
  std::string reply = (this->*rule->run)(fields);
  if (!rule->prints || !paperOut_ || reply.starts_with("ERR")) return reply;
  commandHeld_ = true;
  return PaperError();
}

std::string SimulatedRegister::Status(CommandFields& fields) {
  fields.OperatorDigits();
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (paperOut_) return PaperError();
  return ReceiptOpen() ? Refusal(refusal::kNotNow) : Done(fields);
}

std::string SimulatedRegister::Identity(CommandFields& fields) {
  fields.OperatorDigits();
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  return Done(fields) + profile_.model + profile_.release;
}

std::string SimulatedRegister::TimeOfDay(CommandFields& fields) {
  fields.OperatorDigits();
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  const LocalTime now = Now();
  char text[80];
  std::snprintf(text, sizeof text, "%02d%02d%02d%02d%02d", now.day, now.month, now.year % 100, now.hour,
                now.minute);
  return std::string(fields.Code()) + text;
}

std::string SimulatedRegister::Restart(CommandFields& fields) {
  fields.OperatorDigits();
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (!paperOut_) return Done(fields);
  paperOut_.reset();
  commandHeld_ = false;
  linesPrinted_ = 0;
  for (const auto& line : std::exchange(linesHeld_, {})) PutOnPaper(line);
  return Done(fields);
}

std::string SimulatedRegister::OpenDocument(CommandFields& fields) {
  fields.OperatorDigits();
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (ReceiptOpen()) return Refusal(refusal::kNotNow);
  documentOpen_ = true;
  PrintHead();
  Print(Centred("DOCUMENTO NON FISCALE"));
  return Done(fields);
}

std::string SimulatedRegister::PrintInDocument(CommandFields& fields) {
  fields.OperatorDigits();
  fields.DigitsBetween(1, 0, 3);
  const std::string text = fields.Remaining(37);
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (!ReceiptOpen()) return Refusal(refusal::kOutOfSequence);
  if (receipt_ && ReceiptFull()) return Refusal(refusal::kFull);
  PrintEntry(text);
  return Done(fields);
}

std::string SimulatedRegister::CloseDocument(CommandFields& fields) {
  fields.OperatorDigits();
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (!documentOpen_) return Refusal(refusal::kOutOfSequence);
  EndDocument("FINE DOCUMENTO");
  return Done(fields);
}

std::string SimulatedRegister::MoveCash(CommandFields& fields) {
  const auto code = fields.Code();
  fields.OperatorDigits();
  const std::int64_t amount = fields.Digits(9);
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (ReceiptOpen()) return Refusal(refusal::kNotNow);
  if (amount > Receipt::kLargestAmount) return Refusal(refusal::kTooLarge);
  const bool in = code == "1031" || code == "1039";
  Print(Centred(code < "1039" ? "CASSA CONTANTI" : "CASSA ASSEGNI"));
  Print(Spread(in ? "VERSAMENTO" : "PRELIEVO", FormatCents(amount)));
  PrintEnd("");
  return Done(fields);
}

std::string SimulatedRegister::Report(CommandFields& fields) {
  const std::string code(fields.Code());
  fields.OperatorDigits();
  if (code == "2004" || code == "2010") fields.Digits(4);
  if (code == "2002" || code == "2003" || code == "2006") fields.Digits(2);
  if (code == "2008" || code == "2009" || code == "2012") fields.Digits(2);
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (ReceiptOpen()) return Refusal(refusal::kNotNow);
  PrintDay("RAPPORTO " + code);
  PrintEnd("");
  return Done(fields);
}

std::string SimulatedRegister::FiscalClosure(CommandFields& fields) {
  fields.Literal("01");
  if (!fields.Complete()) return Refusal(refusal::kMalformed);
  if (ReceiptOpen()) return Refusal(refusal::kNotNow);
  if (fields.Code() == "3002") PrintDay("RAPPORTO FINANZIARIO");
  ++fiscalClosures_;
  PrintDay("CHIUSURA FISCALE N. " + std::to_string(fiscalClosures_));
  PrintEnd("");
  dailyTotal_ = 0;
  dailyReceipts_ = 0;
  return Done(fields);
}

std::string SimulatedRegister::LogoRow(CommandFields& fields) {
  fields.Digits(2);
  fields.DigitsBetween(3, 1, kLogoMostRows);
  constexpr std::size_t kPixelDigits = 2 * kLogoRowBytes;
  const std::string pixels = fields.Text(kPixelDigits);
  const bool hexadecimal = pixels.find_first_not_of("0123456789ABCDEF") == std::string::npos;
  if (!fields.Complete() || pixels.size() != kPixelDigits || !hexadecimal)
    return Refusal(refusal::kMalformed);
  ++logoRows_;
  return Done(fields);
}

std::string SimulatedRegister::Accept(CommandFields& fields) {
  ReadSetting(fields);
  return fields.Complete() ? Done(fields) : Refusal(refusal::kMalformed);
}

LocalTime SimulatedRegister::Now() const {
  return Later(clockStart_, std::chrono::floor<std::chrono::seconds>(clock_.Uptime() - clockStartUptime_));
}

std::string SimulatedRegister::PaperError() const {
  return Refusal(*paperOut_ == Paper::kJournal ? refusal::kJournalPaper : refusal::kReceiptPaper);
}

void SimulatedRegister::PutOnPaper(const std::string& line) {
  if (paperOut_) {
    linesHeld_.push_back(line);
    return;
  }
  paper_.Print(line);
  ++linesPrinted_;
  if (linesPrinted_ == profile_.rollLines) paperOut_ = Paper::kReceipt;
}

void SimulatedRegister::Print(const std::string& line) {
  if (receipt_) receipt_->AddLine(line);
  PutOnPaper(line);
}

void SimulatedRegister::PrintEntry(const std::string& line) {
  if (receipt_) receipt_->CountEntry();
  Print(line);
}

void SimulatedRegister::PrintHead() {
  Print(Centred("NEGOZIO DI PROVA"));
  Print(Centred("REGISTRATORE SIMULATO"));
  Print(Spread("", "EURO"));
}

void SimulatedRegister::PrintEnd(std::string_view title) {
  const LocalTime now = Now();
  char text[80];
  std::snprintf(text, sizeof text, "%02d/%02d/%04d %02d:%02d", now.day, now.month, now.year, now.hour,
                now.minute);
  Print(Spread(text, title));
  Print(Divider());
}

void SimulatedRegister::PrintDay(const std::string& title) {
  Print(Centred(title));
  Print(Spread("SCONTRINI", std::to_string(dailyReceipts_)));
  Print(Spread("TOTALE DEL GIORNO", FormatCents(dailyTotal_)));
}

void SimulatedRegister::EndDocument(std::string_view title) {
  PrintEnd(title);
  documentOpen_ = false;
}

}  // namespace orvenza
