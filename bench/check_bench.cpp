#include <benchmark/benchmark.h>

#include <array>
#include <ostream>
#include <streambuf>
#include <string>

#include "lab/check/file_check.h"
#include "simulator/virtual_clock.h"

namespace orvenza {
namespace {

constexpr int kLines = 1'000'000;

/// A typical receipt repeated to `kLines` lines, which are never all in memory.
class LongTicket : public ByteReader {
 public:
  std::size_t Read(char* buffer, std::size_t capacity) override {
    std::size_t filled = 0;
    while (line_ < kLines && capacity - filled >= Line().size()) {
      filled += Line().copy(buffer + filled, std::string::npos);
      ++line_;
    }
    return filled;
  }

 private:
  const std::string& Line() const {
    static const std::array<std::string, 5> kReceipt = {
        "1;Pane casereccio;0,750;480;2;;;1;;\r\n", "1;Latte intero 1 l;3,000;159;2;;;1;;\r\n",
        "1;2;1;;1000;;;;-1;\r\n", "1;Olio extravergine;1,000;1190;2;;;1;;\r\n", "2;1;3000;\r\n"};
    return kReceipt[static_cast<std::size_t>(line_) % kReceipt.size()];
  }

  int line_ = 0;
};

/// Discards everything.
class Nowhere : public std::streambuf {
 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

void CheckMillionLines(benchmark::State& state, bool json) {
  CheckRules rules;
  rules.settings.SeparatorChar = ';';
  rules.settings.FileParser = true;
  const NoFiles files;
  VirtualClock clock;
  Nowhere nowhere;
  std::ostream out(&nowhere);
  std::istream in(&nowhere);
  Console console{in, out, out};
  for (auto unused : state) {
    static_cast<void>(unused);
    TicketCheck check(rules, files, clock);
    const auto report = json ? MakeJsonReport(out, rules) : MakeTextReport(out, false, false);
    CheckProgress progress(console, clock, false);
    FileCheck fileCheck(check, *report, progress);
    fileCheck.CheckFile("tickets", [] { return std::make_unique<LongTicket>(); });
    report->End(fileCheck.Totals());
    if (fileCheck.Totals().lines != kLines || fileCheck.Totals().errors + fileCheck.Totals().warnings > 0) {
      state.SkipWithError("the tickets are not as they should be");
    }
  }
  state.SetItemsProcessed(state.iterations() * kLines);
}

BENCHMARK_CAPTURE(CheckMillionLines, text, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CheckMillionLines, json, true)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvenza

BENCHMARK_MAIN();
