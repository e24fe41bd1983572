// Benchmark entry: loads the module and the inputs before any timing, and
// keeps one idle thread alive, as a real host process has threads (glibc's
// mutex takes a cheaper path in a single-threaded process).
#include <benchmark/benchmark.h>

#include <condition_variable>
#include <cstdio>
#include <exception>
#include <mutex>
#include <thread>

#include "inputs.h"
#include "module_loader.h"
#include "sky_objects.h"

namespace {

class IdleThread {
public:
    IdleThread()
        : thread_([this] {
              std::unique_lock<std::mutex> lock(mutex_);
              wake_.wait(lock, [this] { return stop_; });
          }) {}
    ~IdleThread() {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            stop_ = true;
        }
        wake_.notify_one();
        thread_.join();
    }

private:
    std::mutex mutex_;
    std::condition_variable wake_;
    bool stop_ = false;
    std::thread thread_;
};

}  // namespace

int main(int argc, char** argv) {
    try {
        bench::Module();
        bench::Dates();
        bench::SkyDates();
        bench::SkyTimeObjects();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "cal_bench: %s\n", error.what());
        return 1;
    }
    IdleThread idle;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
