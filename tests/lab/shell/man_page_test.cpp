#include "lab/shell/man_page.h"

#include <gtest/gtest.h>

#include "core/version.h"

namespace orvenza::test {
namespace {

const Command kGreet = {
    .name = "greet",
    .summary = "say hello",
    .synopsis = "NAME...\n  [--loud]",
    .description = "Says hello.\nTwice.\n\n  .like this",
    .options = {{"--loud", {}, "in a\\loud voice"}, {"--tone", "TONE", "the 'tone'"}},
    .statuses = "0  said",
    .examples = "orvenza-lab greet C:\\Anna ^~`",
};

TEST(ManPage, HasTheTextsOfTheHelpPage) {
  EXPECT_EQ(ManPage(kGreet), std::string(".TH \"ORVENZA-LAB-GREET\" 1 \"\" \"Orvenza ") + kVersionText +
                                 "\" \"Orvenza\"\n"
                                 ".SH NAME\n"
                                 "orvenza\\-lab\\-greet \\- say hello\n"
                                 ".SH SYNOPSIS\n"
                                 ".B orvenza\\-lab greet\n"
                                 "NAME... [\\-\\-loud]\n"
                                 ".SH DESCRIPTION\n"
                                 ".PP\n"
                                 "Says hello.\n"
                                 "Twice.\n"
                                 ".PP\n"
                                 ".nf\n"
                                 "  .like this\n"
                                 ".fi\n"
                                 ".SH OPTIONS\n"
                                 ".TP\n"
                                 ".B \\-\\-loud\n"
                                 "in a\\eloud voice\n"
                                 ".TP\n"
                                 ".B \\-\\-tone TONE\n"
                                 "the \\(aqtone\\(aq\n"
                                 ".TP\n"
                                 ".B \\-\\-help\n"
                                 "show the help page and exit\n"
                                 ".SH \"EXIT STATUS\"\n"
                                 ".nf\n"
                                 "0  said\n"
                                 ".fi\n"
                                 ".SH EXAMPLES\n"
                                 ".nf\n"
                                 "orvenza\\-lab greet C:\\eAnna \\(ha\\(ti\\(ga\n"
                                 ".fi\n"
                                 ".SH \"SEE ALSO\"\n"
                                 ".BR orvenza\\-lab (1),\n"
                                 ".BR Orvenza (1)\n");
}

TEST(ManPage, KeepsALineThatLooksLikeARequest) {
  Command command = kGreet;
  command.description = ".nothing";
  EXPECT_NE(ManPage(command).find("\n.PP\n\\&.nothing\n"), std::string::npos);
}

TEST(ManPage, ListsTheCommands) {
  const std::string page = ManPage(std::vector<Command>{kGreet});
  EXPECT_NE(page.find(".TP\n.B greet\nsay hello\n"), std::string::npos) << page;
  EXPECT_NE(page.find(".BR Orvenza (1),\n.BR orvenza\\-lab\\-greet (1)\n"), std::string::npos) << page;
}

TEST(ManPage, ShowsTheHelpPageOfTheConnector) {
  EXPECT_NE(ManPageOfConnector().find("\n  \\-\\-simulate [SCRIPT]  use a simulated register"),
            std::string::npos);
}

}  // namespace
}  // namespace orvenza::test
