#ifndef TOLVAD_BENCH_XRATIOREPORTER_H
#define TOLVAD_BENCH_XRATIOREPORTER_H

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

// Keeps the real time of every run so the ratios can be printed after the table.
class xRatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            nanoseconds[run.benchmark_name()] = run.GetAdjustedRealTime();
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> nanoseconds;
};

#endif
