// The peak memory of the largest bookmark read, against the file's size. The read runs in a
// process of its own (this program started again), so nothing an earlier benchmark allocated
// is counted. Two figures:
//   private: the growth of the process's private bytes. Windows keeps their peak
//            (PeakPagefileUsage); Wine reports the current value as the peak, so a second thread
//            samples the current value every millisecond during the read and the largest counts.
//            Wine counts only pages written to, so a buffer allocated and never filled is missed.
//   heap:    the most bytes the read held from operator new at once: every allocation, written
//            to or not, counted exactly, without the heap's own overhead.
#include <windows.h>
#include <psapi.h>
#include <malloc.h>
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <thread>
#include "BenchRegistration.h"
#include "BenchStores.h"
#include "core/ScopedFileHandle.h"
#include "core/ScopedHandle.h"
#include "favorites/cFirefoxFavoritesFinder.h"

namespace {
constexpr int kBookmarks = 100000;
const char kFigureFormat[] = "%zu %zu %zu";  // private growth, heap peak, entries

// Bytes held from operator new since counting began; blocks made before that and freed during it
// make it lower, never higher, than what the counted code itself holds.
std::atomic<bool> gCounting{false};
std::atomic<long long> gHeld{0};
std::atomic<long long> gMostHeld{0};

void* Allocate(std::size_t size) noexcept {
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block != nullptr && gCounting.load(std::memory_order_relaxed)) {
        const long long held = gHeld += static_cast<long long>(_msize(block));
        long long most = gMostHeld.load();
        while (held > most && !gMostHeld.compare_exchange_weak(most, held)) {
        }
    }
    return block;
}

void Release(void* block) noexcept {
    if (block == nullptr) return;
    if (gCounting.load(std::memory_order_relaxed)) gHeld -= static_cast<long long>(_msize(block));
    std::free(block);
}

std::size_t PrivateBytes(bool peak) {
    PROCESS_MEMORY_COUNTERS_EX counters = {};
    counters.cb = sizeof counters;
    if (!::GetProcessMemoryInfo(::GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters), sizeof counters))
        return 0;
    return peak ? counters.PeakPagefileUsage : counters.PagefileUsage;
}
}  // namespace

void* operator new(std::size_t size) {
    if (void* block = Allocate(size)) return block;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    if (void* block = Allocate(size)) return block;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* block) noexcept { Release(block); }
void operator delete[](void* block) noexcept { Release(block); }
void operator delete(void* block, std::size_t) noexcept { Release(block); }
void operator delete[](void* block, std::size_t) noexcept { Release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { Release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { Release(block); }

namespace wbsbench {

int PeakMemoryChild() {
    cFirefoxFavoritesFinder finder;
    FavoritesList list;
    std::atomic<bool> done{false};
    std::size_t sampled = 0;
    std::thread sampler([&] {
        for (;;) {
            sampled = std::max(sampled, PrivateBytes(false));
            if (done) return;
            ::Sleep(1);
        }
    });
    const std::size_t before = PrivateBytes(false);
    gCounting = true;
    (void)finder.GetFavorites(list);
    gCounting = false;
    done = true;
    sampler.join();
    const std::size_t peak = std::max({sampled, PrivateBytes(true), PrivateBytes(false)});

    char figures[96];
    const int length = std::snprintf(figures, sizeof figures, kFigureFormat, peak > before ? peak - before : 0,
                                     static_cast<std::size_t>(std::max(0LL, gMostHeld.load())), list.size());
    DWORD written = 0;
    return ::WriteFile(::GetStdHandle(STD_OUTPUT_HANDLE), figures, static_cast<DWORD>(length), &written, nullptr) ? 0 : 1;
}

void MeasurePeakMemory() {
    const std::size_t fileBytes = Stores().Place(BenchStores::kFirefoxBookmarks, BookmarksHtml, kBookmarks);
    const std::wstring output = Stores().Path(L"peak-memory.txt");
    {
        SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
        ScopedFileHandle out(::CreateFileW(output.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                                           FILE_ATTRIBUTE_NORMAL, nullptr));
        wchar_t program[MAX_PATH] = {};
        ::GetModuleFileNameW(nullptr, program, MAX_PATH);
        std::wstring commandLine = L"\"" + std::wstring(program) + L"\" --peak-memory-child";
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = out.get();
        startup.hStdError = out.get();
        PROCESS_INFORMATION process = {};
        if (!out || !::CreateProcessW(program, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                      &startup, &process))
            return;
        ScopedHandle thread(process.hThread);
        ScopedHandle child(process.hProcess);
        if (::WaitForSingleObject(child.get(), 120000) != WAIT_OBJECT_0) {
            ::TerminateProcess(child.get(), 1);
            return;
        }
    }
    std::size_t privateGrowth = 0;
    std::size_t heapPeak = 0;
    std::size_t entries = 0;
    if (std::sscanf(wbstest::ReadBytes(output).c_str(), kFigureFormat, &privateGrowth, &heapPeak, &entries) != 3 ||
        entries == 0)
        return;
    const std::string suffix = "/FirefoxBookmarks/" + std::to_string(kBookmarks);
    RecordValue("Memory/PeakPrivate" + suffix, static_cast<double>(privateGrowth));
    RecordValue("Memory/PeakHeap" + suffix, static_cast<double>(heapPeak));
    RecordValue("Memory/File" + suffix, static_cast<double>(fileBytes));
}

}  // namespace wbsbench
