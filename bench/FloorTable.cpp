#include "FloorTable.h"
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>

namespace wbsbench {

namespace {
enum class Unit { Seconds, Bytes };
struct Measure {
    double value;
    Unit unit;
};

std::map<std::string, Measure>& Measures() {
    static std::map<std::string, Measure> measures;
    return measures;
}

// One line of the table: figure / floor must stay at most limit (no target when limit is 0).
struct Row {
    const char* figure;
    const char* floor;
    double limit;
    const char* target;
};

const Row kRows[] = {
    {"Command/BrowserRefresh", "Floor/SendMessage", 3.0, "<= 3x the bare send"},
    {"Command/BrowserRefresh", "Floor/ProcessLookup", 1.5, "<= 1.5x the lookup where it sets the floor"},
    {"Command/GetForegroundWebBrowser", "Floor/ProcessLookup", 1.5, "<= 1.5x the lookup"},
    {"Command/GetForegroundWebBrowser/unrecognised", "Floor/ProcessLookup", 1.5, "<= 1.5x the lookup"},
    {"Command/GetDefaultWebBrowser", "Floor/DefaultBrowserRegistryReads", 1.5, "<= 1.5x the registry reads"},
    {"Load/LoadLibraryAndFirstInstance", "Floor/LoadImageOnly", 0.0, "none set"},
    {"Reader/FirefoxBookmarks/1000", "Floor/ReadUtf8/FirefoxBookmarks/1000", 2.0, "<= 2x"},
    {"Reader/FirefoxBookmarks/6250", "Floor/ReadUtf8/FirefoxBookmarks/6250", 2.0, "<= 2x"},
    {"Reader/FirefoxBookmarks/10000", "Floor/ReadUtf8/FirefoxBookmarks/10000", 2.0, "<= 2x"},
    {"Reader/FirefoxBookmarks/100000", "Floor/ReadUtf8/FirefoxBookmarks/100000", 2.0, "<= 2x"},
    {"Reader/FirefoxBookmarks/100000", "Reader/FirefoxBookmarks/6250", 17.0, "16x the file: <= 17x"},
    {"Reader/FirefoxHistory/10000", "Floor/ReadWiden/FirefoxHistory/10000", 2.0, "<= 2x"},
    {"Reader/FirefoxHistory/160000", "Floor/ReadWiden/FirefoxHistory/160000", 2.0, "<= 2x"},
    {"Reader/FirefoxHistory/160000", "Reader/FirefoxHistory/10000", 17.0, "16x the file: <= 17x"},
    {"Reader/OperaHotlist/100000", "Floor/ReadUtf8/OperaHotlist/100000", 2.0, "<= 2x"},
    {"Reader/OperaHistory/10000", "Floor/ReadWiden/OperaHistory/10000", 2.0, "<= 2x"},
    {"Reader/AOLFavorites/10000", "Floor/ReadUtf8/AOLFavorites/10000", 2.0, "<= 2x"},
    {"Reader/AOLHistory/10000", "Floor/ReadWiden/AOLHistory/10000", 2.0, "<= 2x"},
    {"Reader/IEFavorites/2000", "Floor/ShellWalk/IEFavorites/2000", 2.0, "<= 2x"},
    {"Reader/TypedURLs/50", "Floor/RegEnumValue/TypedURLs/50", 2.0, "<= 2x"},
    {"Memory/PeakPrivate/FirefoxBookmarks/100000", "Memory/File/FirefoxBookmarks/100000", 6.0, "<= 6x the bytes"},
    {"Memory/PeakHeap/FirefoxBookmarks/100000", "Memory/File/FirefoxBookmarks/100000", 6.0, "<= 6x the bytes"},
};

double Value(const std::string& name) {
    const auto found = Measures().find(name);
    return found == Measures().end() ? std::numeric_limits<double>::quiet_NaN() : found->second.value;
}

std::string Format(const std::string& name) {
    const auto found = Measures().find(name);
    if (found == Measures().end()) return "not measured";
    const double value = found->second.value;
    char text[32];
    if (found->second.unit == Unit::Bytes)
        std::snprintf(text, sizeof text, "%.1f MiB", value / (1024.0 * 1024.0));
    else if (value < 1e-3)
        std::snprintf(text, sizeof text, "%.1f us", value * 1e6);
    else if (value < 1.0)
        std::snprintf(text, sizeof text, "%.2f ms", value * 1e3);
    else
        std::snprintf(text, sizeof text, "%.2f s", value);
    return text;
}
}  // namespace

void FastestRunReporter::ReportRuns(const std::vector<Run>& runs) {
    // The repetitions of one benchmark arrive together; the aggregates after them are not shown.
    const Run* fastest = nullptr;
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration) continue;
        if (run.error_occurred) {
            fastest = &run;
            break;
        }
        const double perIteration = run.real_accumulated_time / static_cast<double>(run.iterations);
        if (fastest == nullptr || perIteration < fastest->real_accumulated_time / static_cast<double>(fastest->iterations))
            fastest = &run;
    }
    if (fastest == nullptr) return;
    if (!fastest->error_occurred)
        Measures()[fastest->run_name.function_name] = {
            fastest->real_accumulated_time / static_cast<double>(fastest->iterations), Unit::Seconds};
    ConsoleReporter::ReportRuns({*fastest});
}

void RecordValue(const std::string& name, double value) { Measures()[name] = {value, Unit::Bytes}; }

void PrintFloorTable(std::ostream& out) {
    char line[256];
    std::snprintf(line, sizeof line, "\n%-46s %12s  %-40s %12s %8s  %-44s %s\n", "Figure", "", "Floor", "", "Ratio",
                  "Target", "");
    out << line;
    for (const Row& row : kRows) {
        const double ratio = Value(row.figure) / Value(row.floor);
        const char* verdict = std::isnan(ratio) ? "not measured" : row.limit == 0.0 ? "" : ratio <= row.limit ? "met" : "MISSED";
        std::snprintf(line, sizeof line, "%-46s %12s  %-40s %12s %7.2fx  %-44s %s\n", row.figure, Format(row.figure).c_str(),
                      row.floor, Format(row.floor).c_str(), ratio, row.target, verdict);
        out << line;
    }
    // A command cannot be faster than the process lookup and the send it is made of.
    const double send = Value("Floor/SendMessage");
    const double lookup = Value("Floor/ProcessLookup");
    if (!std::isnan(send) && !std::isnan(lookup)) {
        std::snprintf(line, sizeof line,
                      "\nThe process lookup is %.2fx the bare send: %s.\n", lookup / send,
                      lookup + send > 3.0 * send ? "the lookup sets a command's floor (its 1.5x target applies)"
                                                 : "the bare send sets a command's floor (its 3x target applies)");
        out << line;
    }
}

}  // namespace wbsbench
