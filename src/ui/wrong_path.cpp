#include "ui/wrong_path.h"

#include "core/catalogue.h"
#include "core/text.h"

namespace orvenza {

void ReportWrongPath(OperatorMessages& messages, Journals& journals, const std::string& folder) {
  journals.WrErr(LoadMessage(185) + " " + folder);
  const std::string lineBreak(kLineBreak);
  messages.ShowOperatorMessage(
      LoadMessage(185) + lineBreak + folder + lineBreak + lineBreak + LoadMessage(186), message_style::kStop,
      {});
}

}  // namespace orvenza
