#include "bench/Table.h"

#include <cstdio>
#include <iterator>

namespace {

std::string timeText(double seconds)
{
    const char *const units[] = {"s ", "ms", "us", "ns"};
    size_t unit = 0;
    double value = seconds;
    while (value < 1 && unit + 1 < std::size(units)) {
        value *= 1000;
        ++unit;
    }
    char text[32];
    std::snprintf(text, sizeof(text), "%.2f %s", value, units[unit]);
    return text;
}

} // namespace

void Bench::Table::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
            m_medians[run.run_name.function_name] =
                run.cpu_accumulated_time / static_cast<double>(run.iterations);
    }
}

bool Bench::Table::print(const std::vector<Row> &rows) const
{
    bool allWithin = true;
    std::printf("%-28s %-36s %11s %11s %9s %9s\n", "road", "input", "time", "bound", "ratio",
                "budget");
    for (const Row &row : rows) {
        const auto measured = m_medians.find(measuredName(row));
        const auto bound = m_medians.find(boundName(row));
        if (measured == m_medians.cend() || bound == m_medians.cend())
            continue;
        const double ratio = measured->second / bound->second;
        const bool isWithin = row.budget == NoBudget || ratio <= row.budget;
        allWithin = allWithin && isWithin;
        char budget[32] = "-";
        if (row.budget != NoBudget)
            std::snprintf(budget, sizeof(budget), "%.3g", row.budget);
        std::printf("%-28s %-36s %11s %11s %9.3g %9s %s\n", row.road.c_str(), row.input.c_str(),
                    timeText(measured->second).c_str(), timeText(bound->second).c_str(), ratio,
                    budget, isWithin ? "ok" : "OVER");
    }
    return allWithin;
}

std::string Bench::measuredName(const Row &row)
{
    return row.road + ", " + row.input;
}

std::string Bench::boundName(const Row &row)
{
    return measuredName(row) + " (bound)";
}
