#pragma once

#include "bench/Rows.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace Bench {

/// Gathers the medians of a run and prints them as one table.
class Table : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override;

    /// Prints a line for each row that was timed; false if one of them is over its budget.
    [[nodiscard]] bool print(const std::vector<Row> &rows) const;

private:
    std::map<std::string, double> m_medians; // seconds, by the name of the benchmark
};

/// The names under which the two halves of a row are timed.
std::string measuredName(const Row &row);
std::string boundName(const Row &row);

} // namespace Bench
