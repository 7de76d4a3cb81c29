#pragma once
#include <benchmark/benchmark.h>
#include <string>
#include <utility>
#include "FloorTable.h"

namespace wbsbench {

// Registers one benchmark under the name the floor table knows it by, repeated so that the table
// can take the fastest repetition.
template <typename Body>
benchmark::internal::Benchmark* Register(const std::string& name, Body&& body) {
    return benchmark::RegisterBenchmark(name.c_str(), std::forward<Body>(body))
        ->Repetitions(kRepetitions)
        ->Unit(benchmark::kMicrosecond);
}

void RegisterCommandBenchmarks();
void RegisterReaderBenchmarks();
// Ends the fixture programs and puts back the registry values the command benchmarks changed.
void EndCommandFixtures();

// The peak memory of the largest bookmark read, measured in a process of its own.
void MeasurePeakMemory();
// The process that measures it: reads the bookmark file the parent placed and prints its figures.
int PeakMemoryChild();

}  // namespace wbsbench
