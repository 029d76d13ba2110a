#include "ui/path_reports.h"

#include "core/catalogue.h"
#include "core/own_texts.h"
#include "core/text.h"

namespace orvenza {
namespace {

void Report(OperatorMessages& messages, Logs& logs, const std::string& what, const std::string& path) {
  logs.WrErr(what + " " + path);
  const std::string lineBreak(kLineBreak);
  messages.ShowOperatorMessage(
      what + lineBreak + path + lineBreak + lineBreak + LoadMessage(MessageId::kProgramWillEnd),
      {MessageIcon::kStop}, {});
}

}  // namespace

void ReportWrongPath(OperatorMessages& messages, Logs& logs, const std::string& folder) {
  Report(messages, logs, LoadMessage(MessageId::kWrongPath), folder);
}

void ReportUnreadableSettings(OperatorMessages& messages, Logs& logs, const std::string& path) {
  Report(messages, logs, own_text::kSettingsUnreadable, path);
}

}  // namespace orvenza
