#include "bench/OwnHome.h"
#include "bench/Rows.h"
#include "bench/Table.h"

#include <QApplication>
#include <QLoggingCategory>

#include <benchmark/benchmark.h>

namespace {

constexpr int Repetitions = 5;  // of which the median counts
constexpr double MinTime = 0.2; // seconds a repetition

void add(const std::string &name, const Bench::Work &work)
{
    const auto run = [work](benchmark::State &state) {
        for ([[maybe_unused]] auto iteration : state)
            work();
    };
    benchmark::RegisterBenchmark(name.c_str(), run)->Repetitions(Repetitions)->MinTime(MinTime);
}

} // namespace

/// tessaril_bench [words]: times the rows whose road and input hold the words; all without.
int main(int argc, char **argv)
{
    const Bench::OwnHome home;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv); // for the rows that paint widgets
    QLoggingCategory::setFilterRules(QStringLiteral("default*=false"));
    const std::string wanted = argc > 1 ? argv[1] : "";
    const std::vector<Bench::Row> rows = Bench::allRows();
    Bench::Table table;
    for (const Bench::Row &row : rows) {
        if (Bench::measuredName(row).find(wanted) == std::string::npos)
            continue;
        // One row at a time, so that the input of one does not weigh on the next.
        const Bench::Pair pair = row.prepare();
        add(Bench::measuredName(row), pair.measured);
        add(Bench::boundName(row), pair.bound);
        benchmark::RunSpecifiedBenchmarks(&table);
        benchmark::ClearRegisteredBenchmarks(); // its widgets end before the application
    }
    return table.print(rows) ? 0 : 1;
}
