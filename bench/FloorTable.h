#pragma once
// Every figure of the run beside its floor, measured in the same run: the fastest repetition of
// each benchmark is kept, and the table printed at the end gives each figure, its floor, their
// ratio and the ratio's target.
#include <benchmark/benchmark.h>
#include <ostream>
#include <string>
#include <vector>

namespace wbsbench {

// Prints only the fastest repetition of each benchmark and keeps its time per iteration.
class FastestRunReporter : public benchmark::ConsoleReporter {
public:
    FastestRunReporter() : benchmark::ConsoleReporter(OO_None) {}
    void ReportRuns(const std::vector<Run>& runs) override;
};

// A figure that is not a benchmark's time (a memory size), in its own unit.
void RecordValue(const std::string& name, double value);

// The table of figures against floors, from what this run measured.
void PrintFloorTable(std::ostream& out);

// How many times a benchmark is repeated; the table takes the fastest repetition. The run
// interleaves the repetitions of all benchmarks, so each figure's are spread over the run and a
// busy moment of the machine does not weigh on one benchmark alone.
constexpr int kRepetitions = 5;

}  // namespace wbsbench
