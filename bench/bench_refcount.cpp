// Reference counting: AddRef and Release of a module object beside a plain
// virtual call and an atomic increment/decrement pair through virtual calls.
#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdint>

#include "module_loader.h"
#include "registration.h"

namespace bench {
namespace {

struct Counted {
    virtual ~Counted() = default;
    virtual std::int32_t AddRef() = 0;
    virtual std::int32_t Release() = 0;
};

struct AtomicCounted final : Counted {
    std::int32_t AddRef() override { return refs.fetch_add(1) + 1; }
    std::int32_t Release() override { return refs.fetch_sub(1) - 1; }
    std::atomic<std::int32_t> refs{1};
};

struct Called {
    virtual ~Called() = default;
    virtual std::int32_t Call() = 0;
};

struct PlainCalled final : Called {
    std::int32_t Call() override { return ++calls; }
    std::int32_t calls = 0;
};

void RefCount_Module(benchmark::State& state) {
    SmartPtr<ITime> time = Module().CreateTime();
    ITime* t = time.get();
    for (auto _ : state) {
        t->AddRef();
        const std::int32_t count = t->Release();
        benchmark::DoNotOptimize(count);
    }
}

void RefCount_VirtualAtomic(benchmark::State& state) {
    AtomicCounted object;
    Counted* counted = &object;
    for (auto _ : state) {
        benchmark::DoNotOptimize(counted);  // keeps the calls virtual
        counted->AddRef();
        const std::int32_t count = counted->Release();
        benchmark::DoNotOptimize(count);
    }
}

void VirtualCall_Plain(benchmark::State& state) {
    PlainCalled object;
    Called* called = &object;
    for (auto _ : state) {
        benchmark::DoNotOptimize(called);
        const std::int32_t calls = called->Call();
        benchmark::DoNotOptimize(calls);
    }
}

}  // namespace

CAL_BENCHMARK(RefCount_Module);
CAL_BENCHMARK(RefCount_VirtualAtomic);
CAL_BENCHMARK(VirtualCall_Plain);

}  // namespace bench
