// The benchmarks under Wine, and at the end the table of every figure against its floor, both
// measured in this run. Run again with "--peak-memory-child", the program is the process in
// which the peak memory of a read is measured.
#include <benchmark/benchmark.h>
#include <windows.h>
#include <objbase.h>
#include <cstring>
#include <iostream>
#include <vector>
#include "BenchRegistration.h"
#include "BenchStores.h"
#include "FloorTable.h"

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--peak-memory-child") == 0) return wbsbench::PeakMemoryChild();

    // Repetitions interleaved unless the command line says otherwise (a later flag wins).
    std::vector<char*> arguments(argv, argv + argc);
    char interleave[] = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, interleave);
    argc = static_cast<int>(arguments.size());
    argv = arguments.data();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    // The Internet Explorer reader asks the shell's objects for each shortcut.
    const HRESULT com = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    wbsbench::RegisterCommandBenchmarks();
    wbsbench::RegisterReaderBenchmarks();

    wbsbench::FastestRunReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    wbsbench::MeasurePeakMemory();
    wbsbench::EndCommandFixtures();
    wbsbench::EndStores();
    benchmark::Shutdown();
    if (SUCCEEDED(com)) ::CoUninitialize();

    wbsbench::PrintFloorTable(std::cout);
    return 0;
}
