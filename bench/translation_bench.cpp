#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/logs.h"
#include "lab/shell/no_files.h"
#include "tickets/translation.h"

namespace orvenza {
namespace {

class StoppedClock : public Clock {
 public:
  LocalTime Now() const override { return {}; }
  double SecondsSinceMidnight() const override { return 0; }
  std::chrono::nanoseconds Uptime() const override { return {}; }
  void SetTimeOfDay(int, int, int) override {}
  std::string Stamp(const LocalTime&) const override { return {}; }
};

/// A typical receipt: mostly items, some texts, a payment.
const std::vector<std::string>& Lines() {
  static const std::vector<std::string> lines = {
      "1;Pane casereccio al kg;1,250;450;3;;;1;;",
      "1;Latte intero;1000;159;3;;;1;;",
      "1;Acqua minerale 6x1,5l;2,0;298;3;;;1;;",
      "1;1;1;;50;SCONTO SOCIO;1;;-1;",
      "1;Detersivo piatti;1000;1990;1;;;1;;",
      "3;Reso bottiglia vuota;30;2;;;1;;1000;",
      "5;2;1;RESO MERCE;1;700;",
      "17;;7;Lei e' stato servito da Anna;2;",
      "23;Grazie e arrivederci;2;",
      "2;1;5000;2;CONTANTI;",
  };
  return lines;
}

std::vector<RecordFields> Records() {
  std::vector<RecordFields> records(Lines().size());
  for (std::size_t i = 0; i < records.size(); ++i) SplitRecord(Lines()[i], ';', records[i]);
  return records;
}

/// A translator with everything it needs.
struct World {
  RegisterIdentity identity{"  TOVEST 8", "2.02.00", 20200};
  AppSettings settings;
  NoFiles files;
  StoppedClock clock;
  Logs logs{files, clock, settings, "C:\\shop"};
  RecordTranslator translator{identity, settings, files, logs};
};

void CountLines(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Lines().size()));
}

void BM_SplitRecord(benchmark::State& state) {
  RecordFields fields;
  for (auto unused : state) {
    static_cast<void>(unused);
    for (const std::string& line : Lines()) {
      SplitRecord(line, ';', fields);
      benchmark::DoNotOptimize(fields);
    }
  }
  CountLines(state);
}
BENCHMARK(BM_SplitRecord);

void BM_TranslateRecord(benchmark::State& state) {
  const World world;
  const std::vector<RecordFields> records = Records();
  for (auto unused : state) {
    static_cast<void>(unused);
    for (const RecordFields& fields : records) {
      benchmark::DoNotOptimize(world.translator.TranslateRecord(fields));
    }
  }
  CountLines(state);
}
BENCHMARK(BM_TranslateRecord);

void BM_SplitAndTranslate(benchmark::State& state) {
  const World world;
  RecordFields fields;
  for (auto unused : state) {
    static_cast<void>(unused);
    for (const std::string& line : Lines()) {
      SplitRecord(line, ';', fields);
      benchmark::DoNotOptimize(world.translator.TranslateRecord(fields));
    }
  }
  CountLines(state);
}
BENCHMARK(BM_SplitAndTranslate);

}  // namespace
}  // namespace orvenza

BENCHMARK_MAIN();
