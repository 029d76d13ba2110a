#include "lab/shell/completion.h"

#include <gtest/gtest.h>

namespace orvenza::test {
namespace {

const std::vector<Command> kCommands = {
    {.name = "greet",
     .options = {{"--folder", "DIR", "where"}, {"--tone", "warm|cold", "how"}, {"--name", "NAME", "whom"}}},
    {.name = "wave"},
};

TEST(BashCompletion, HasTheWordsOfTheTables) {
  EXPECT_EQ(BashCompletion(kCommands),
            "# Completes command lines of orvenza-lab in bash. Written by: orvenza-lab completion bash\n"
            "_orvenza_lab() {\n"
            "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} options=\n"
            "  COMPREPLY=()\n"
            "  if ((COMP_CWORD == 1)); then\n"
            "    COMPREPLY=($(compgen -W 'greet wave help completion man --version --help' -- \"$word\"))\n"
            "    return\n"
            "  fi\n"
            "  case ${COMP_WORDS[1]} in\n"
            "    help | man) options='greet wave' ;;\n"
            "    completion) options='bash powershell' ;;\n"
            "    greet)\n"
            "      case $before in\n"
            "        --folder) COMPREPLY=($(compgen -d -- \"$word\")); return ;;\n"
            "        --tone) COMPREPLY=($(compgen -W 'warm cold' -- \"$word\")); return ;;\n"
            "        --name) return ;;\n"
            "      esac\n"
            "      options='--folder --tone --name --help'\n"
            "      ;;\n"
            "    wave)\n"
            "      case $before in\n"
            "      esac\n"
            "      options='--help'\n"
            "      ;;\n"
            "  esac\n"
            "  if [[ $word == -* || ${COMP_WORDS[1]} =~ ^(help|man|completion)$ ]]; then\n"
            "    COMPREPLY=($(compgen -W \"$options\" -- \"$word\"))\n"
            "  fi\n"
            "}\n"
            "complete -o default -F _orvenza_lab orvenza-lab\n");
}

TEST(PowerShellCompletion, HasTheWordsOfTheTables) {
  const std::string script = PowerShellCompletion(kCommands);
  const std::string words =
      "$orvenzaLabWords = @{\n"
      "  '' = @('greet', 'wave', 'help', 'completion', 'man', '--version', '--help')\n"
      "  'greet' = @('--folder', '--tone', '--name', '--help')\n"
      "  'wave' = @('--help')\n"
      "  'help' = @('greet', 'wave')\n"
      "  'man' = @('greet', 'wave')\n"
      "  'completion' = @('bash', 'powershell')\n"
      "}\n"
      "$orvenzaLabValues = @{\n"
      "  'greet --tone' = @('warm', 'cold')\n"
      "}\n"
      "Register-ArgumentCompleter -Native -CommandName orvenza-lab, orvenza-lab.exe -ScriptBlock {\n";
  EXPECT_NE(script.find(words), std::string::npos) << script;
}

}  // namespace
}  // namespace orvenza::test
