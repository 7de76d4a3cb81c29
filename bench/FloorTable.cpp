#include "FloorTable.h"
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>

namespace wbsbench {

namespace {
enum class Unit { Seconds, Bytes };
struct Measure {
    double value;  // seconds of wall-clock time an iteration, or bytes
    double cpu;    // seconds of this process's processor time an iteration; NaN for bytes
    Unit unit;
};

std::map<std::string, Measure>& Measures() {
    static std::map<std::string, Measure> measures;
    return measures;
}

// One line of the table: figure / floor must stay at most limit (no target when limit is 0). A
// floor of several parts joined by "+" is their sum.
struct Row {
    const char* figure;
    const char* floor;
    double limit;
    const char* target;
};

const Row kRows[] = {
    {"Command/BrowserRefresh", "Floor/SendMessage", 3.0, "<= 3x the bare send"},
    {"Command/BrowserRefresh", "Floor/ProcessLookup", 1.5, "<= 1.5x the lookup, where it sets the floor"},
    {"Command/BrowserRefresh", "Floor/ClassNameLookupAndSend", 0.0, "bound: the platform calls it needs"},
    {"Command/GetForegroundWebBrowser", "Floor/ProcessLookup", 1.5, "<= 1.5x the lookup"},
    {"Command/GetForegroundWebBrowser", "Floor/ClassNameAndLookup", 0.0, "bound: the platform calls it needs"},
    {"Command/GetForegroundWebBrowser/unrecognised", "Floor/ProcessLookup", 1.5, "<= 1.5x the lookup"},
    {"Command/GetDefaultWebBrowser", "Floor/DefaultBrowserRegistryReads", 1.5, "<= 1.5x the registry reads"},
    {"Load/LoadLibraryAndFirstInstance", "Floor/LoadImageOnly", 0.0, "none set"},
    {"Reader/FirefoxBookmarks/1000", "Floor/ReadUtf8/FirefoxBookmarks/1000", 2.0, "<= 2x"},
    {"Reader/FirefoxBookmarks/6250", "Floor/ReadUtf8/FirefoxBookmarks/6250", 2.0, "<= 2x"},
    {"Reader/FirefoxBookmarks/10000", "Floor/ReadUtf8/FirefoxBookmarks/10000", 2.0, "<= 2x"},
    {"Reader/FirefoxBookmarks/100000", "Floor/ReadUtf8/FirefoxBookmarks/100000", 2.0, "<= 2x"},
    {"Reader/FirefoxBookmarks/100000", "Reader/FirefoxBookmarks/6250", 17.0, "16x the file: <= 17x"},
    {"Reader/FirefoxBookmarks/100000",
     "Floor/TextStreamLines/FirefoxBookmarks/100000+Floor/EntryList/FirefoxBookmarks/100000", 0.0,
     "bound: text lines, list"},
    {"Reader/FirefoxHistory/10000", "Floor/ReadWiden/FirefoxHistory/10000", 2.0, "<= 2x"},
    {"Reader/FirefoxHistory/160000", "Floor/ReadWiden/FirefoxHistory/160000", 2.0, "<= 2x"},
    {"Reader/FirefoxHistory/160000", "Reader/FirefoxHistory/10000", 17.0, "16x the file: <= 17x"},
    {"Reader/FirefoxHistory/160000", "Floor/TextStreamLines/FirefoxHistory/160000+Floor/EntryList/FirefoxHistory/160000",
     0.0, "bound: text lines, list"},
    {"Reader/OperaHotlist/100000", "Floor/ReadUtf8/OperaHotlist/100000", 2.0, "<= 2x"},
    {"Reader/OperaHotlist/100000", "Floor/TextStreamLines/OperaHotlist/100000+Floor/EntryList/OperaHotlist/100000", 0.0,
     "bound: text lines, list"},
    {"Reader/OperaHistory/10000", "Floor/ReadWiden/OperaHistory/10000", 2.0, "<= 2x"},
    {"Reader/OperaHistory/10000", "Floor/TextStreamLines/OperaHistory/10000+Floor/EntryList/OperaHistory/10000", 0.0,
     "bound: text lines, list"},
    {"Reader/AOLFavorites/10000", "Floor/ReadUtf8/AOLFavorites/10000", 2.0, "<= 2x"},
    {"Reader/AOLFavorites/10000", "Floor/ReadUtf8/AOLFavorites/10000+Floor/EntryList/AOLFavorites/10000", 0.0,
     "bound: bytes, list"},
    {"Reader/AOLHistory/10000", "Floor/ReadWiden/AOLHistory/10000", 2.0, "<= 2x"},
    {"Reader/AOLHistory/10000", "Floor/ReadWiden/AOLHistory/10000+Floor/EntryList/AOLHistory/10000", 0.0,
     "bound: bytes, list"},
    {"Reader/IEFavorites/2000", "Floor/ShellWalk/IEFavorites/2000", 2.0, "<= 2x"},
    {"Reader/TypedURLs/50", "Floor/RegEnumValue/TypedURLs/50", 2.0, "<= 2x"},
    {"Memory/PeakPrivate/FirefoxBookmarks/100000", "Memory/File/FirefoxBookmarks/100000", 6.0, "<= 6x the bytes"},
    {"Memory/PeakHeap/FirefoxBookmarks/100000", "Memory/File/FirefoxBookmarks/100000", 6.0, "<= 6x the bytes"},
};

const double kNotMeasured = std::numeric_limits<double>::quiet_NaN();

// The sum of the named measures' wall-clock (or byte) values, or of their processor times.
double Sum(const std::string& names, bool cpu) {
    double sum = 0.0;
    std::string::size_type from = 0;
    for (;;) {
        const std::string::size_type plus = names.find('+', from);
        const auto found = Measures().find(names.substr(from, plus == std::string::npos ? plus : plus - from));
        if (found == Measures().end()) return kNotMeasured;
        sum += cpu ? found->second.cpu : found->second.value;
        if (plus == std::string::npos) return sum;
        from = plus + 1;
    }
}

std::string FormatValue(double value, Unit unit) {
    char text[32];
    if (std::isnan(value))
        std::snprintf(text, sizeof text, "not measured");
    else if (unit == Unit::Bytes)
        std::snprintf(text, sizeof text, "%.1f MiB", value / (1024.0 * 1024.0));
    else if (value < 1e-3)
        std::snprintf(text, sizeof text, "%.1f us", value * 1e6);
    else if (value < 1.0)
        std::snprintf(text, sizeof text, "%.2f ms", value * 1e3);
    else
        std::snprintf(text, sizeof text, "%.2f s", value);
    return text;
}

// A floor as the table shows it: each part without "Floor/" and without the figure's own store.
std::string FloorLabel(const std::string& figure, const std::string& floor) {
    const std::string::size_type slash = figure.find('/');
    const std::string store = slash == std::string::npos ? std::string() : figure.substr(slash);
    std::string label;
    std::string::size_type from = 0;
    for (;;) {
        const std::string::size_type plus = floor.find('+', from);
        std::string part = floor.substr(from, plus == std::string::npos ? plus : plus - from);
        if (part.compare(0, 6, "Floor/") == 0) part.erase(0, 6);
        if (part.size() > store.size() && part.compare(part.size() - store.size(), store.size(), store) == 0 &&
            figure.compare(0, 7, "Reader/") == 0)
            part.erase(part.size() - store.size());
        label += (label.empty() ? "" : " + ") + part;
        if (plus == std::string::npos) return label;
        from = plus + 1;
    }
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
    if (!fastest->error_occurred) {
        const double iterations = static_cast<double>(fastest->iterations);
        Measures()[fastest->run_name.function_name] = {fastest->real_accumulated_time / iterations,
                                                       fastest->cpu_accumulated_time / iterations, Unit::Seconds};
    }
    ConsoleReporter::ReportRuns({*fastest});
}

void RecordValue(const std::string& name, double value) { Measures()[name] = {value, kNotMeasured, Unit::Bytes}; }

void PrintFloorTable(std::ostream& out) {
    char line[320];
    std::snprintf(line, sizeof line, "\n%-44s %12s  %-38s %12s %8s %8s  %-44s\n", "Figure", "", "Floor", "", "Ratio",
                  "CPU", "Target");
    out << line;
    for (const Row& row : kRows) {
        const auto figure = Measures().find(row.figure);
        const Unit unit = figure == Measures().end() ? Unit::Seconds : figure->second.unit;
        const double ratio = Sum(row.figure, false) / Sum(row.floor, false);
        const double cpuRatio = Sum(row.figure, true) / Sum(row.floor, true);
        const char* verdict = std::isnan(ratio) ? "" : row.limit == 0.0 ? "" : ratio <= row.limit ? "met" : "MISSED";
        char cpu[16] = "";
        if (!std::isnan(cpuRatio)) std::snprintf(cpu, sizeof cpu, "%.2fx", cpuRatio);
        std::snprintf(line, sizeof line, "%-44s %12s  %-38s %12s %7.2fx %8s  %-44s %s\n", row.figure,
                      FormatValue(Sum(row.figure, false), unit).c_str(), FloorLabel(row.figure, row.floor).c_str(),
                      FormatValue(Sum(row.floor, false), unit).c_str(), ratio, cpu, row.target, verdict);
        out << line;
    }
    // A command cannot be faster than the process lookup and the send it is made of.
    const double send = Sum("Floor/SendMessage", false);
    const double lookup = Sum("Floor/ProcessLookup", false);
    if (!std::isnan(send) && !std::isnan(lookup)) {
        std::snprintf(line, sizeof line, "\nThe process lookup is %.2fx the bare send: %s.\n", lookup / send,
                      lookup + send > 3.0 * send ? "the lookup sets a command's floor (its 1.5x target applies)"
                                                 : "the bare send sets a command's floor (its 3x target applies)");
        out << line;
    }
}

}  // namespace wbsbench
