// Ring buffer of doubles: the module's DblBuffer through IDblVector beside
// boost::circular_buffer, bare and guarded by std::mutex.
#include <benchmark/benchmark.h>

#include <boost/circular_buffer.hpp>
#include <mutex>
#include <string>

#include "inputs.h"
#include "module_loader.h"
#include "registration.h"

namespace bench {
namespace {

constexpr std::int32_t kCapacity = static_cast<std::int32_t>(kInputCount);

// A listener that only counts; its references are plain integers because the
// benchmark calls it from one thread.
class CountingListener final : public _IDblVectorEvent {
public:
    HRESULT QueryInterface(const IID& iid, void** out) override {
        static const IID event = NamedIID("_IDblVectorEvent");
        if (iid == event || iid == IID_IUnknown) {
            *out = static_cast<_IDblVectorEvent*>(this);
            ++refs_;
            return S_OK;
        }
        *out = nullptr;
        return E_NOINTERFACE;
    }
    std::int32_t AddRef() override { return ++refs_; }
    std::int32_t Release() override { return --refs_; }
    HRESULT SizeChanged(IDblVector*) override { return S_OK; }
    HRESULT ElementChanged(IDblVector*, std::int32_t) override {
        ++calls_;
        return S_OK;
    }

private:
    std::int32_t refs_ = 1;  // the benchmark's own reference; never deleted through Release
    std::int64_t calls_ = 0;
};

// The peer's listener: one virtual call per append.
struct PeerListener {
    virtual ~PeerListener() = default;
    virtual void ElementChanged(std::int32_t index) = 0;
};
struct CountingPeerListener final : PeerListener {
    void ElementChanged(std::int32_t) override { ++calls; }
    std::int64_t calls = 0;
};

SmartPtr<IDblVector> Vector() {
    SmartPtr<IDblVector> vector = Module().CreateDblBuffer();
    vector->put_Size(kCapacity);
    return vector;
}

SmartPtr<IDblVector> FullVector() {
    SmartPtr<IDblVector> vector = Vector();
    for (double v : SkyDates().starDate) vector->put_Element(-1, v);
    return vector;
}

// Module: appends through IDblVector.
void AppendLoop(benchmark::State& state, IDblVector* v) {
    const auto& in = SkyDates().starDate;
    std::size_t i = 0;
    for (auto _ : state) {
        const HRESULT result = v->put_Element(-1, in[i++ & kInputMask]);
        benchmark::DoNotOptimize(result);
    }
}

void Append_Module(benchmark::State& state) {
    SmartPtr<IDblVector> vector = Vector();
    AppendLoop(state, vector.get());
}

void Append_Boost(benchmark::State& state) {
    boost::circular_buffer<double> ring(kInputCount);
    const auto& in = SkyDates().starDate;
    std::size_t i = 0;
    for (auto _ : state) {
        ring.push_back(in[i++ & kInputMask]);
        benchmark::ClobberMemory();
    }
}

void Append_BoostMutex(benchmark::State& state) {
    boost::circular_buffer<double> ring(kInputCount);
    std::mutex mutex;
    const auto& in = SkyDates().starDate;
    std::size_t i = 0;
    for (auto _ : state) {
        {
            std::lock_guard<std::mutex> lock(mutex);
            ring.push_back(in[i++ & kInputMask]);
        }
        benchmark::ClobberMemory();
    }
}

void ReadByAge_Module(benchmark::State& state) {
    SmartPtr<IDblVector> vector = FullVector();
    IDblVector* v = vector.get();
    std::size_t i = 0;
    for (auto _ : state) {
        double value = 0.0;
        const HRESULT result = v->get_Element(static_cast<std::int32_t>(i++ & kInputMask), &value);
        benchmark::DoNotOptimize(result);
        benchmark::DoNotOptimize(value);
    }
}

void ReadByAge_Boost(benchmark::State& state) {
    boost::circular_buffer<double> ring(kInputCount);
    for (double v : SkyDates().starDate) ring.push_back(v);
    std::size_t i = 0;
    for (auto _ : state) {
        const double value = ring[i++ & kInputMask];
        benchmark::DoNotOptimize(value);
    }
}

void ReadByAge_BoostMutex(benchmark::State& state) {
    boost::circular_buffer<double> ring(kInputCount);
    for (double v : SkyDates().starDate) ring.push_back(v);
    std::mutex mutex;
    std::size_t i = 0;
    for (auto _ : state) {
        double value;
        {
            std::lock_guard<std::mutex> lock(mutex);
            value = ring[i++ & kInputMask];
        }
        benchmark::DoNotOptimize(value);
    }
}

void AppendListener_Module(benchmark::State& state) {
    SmartPtr<IDblVector> vector = Vector();
    CountingListener listener;
    SmartPtr<IEventSource> source;
    vector->QueryInterface(NamedIID("IEventSource"), source.put_void());
    if (!source) {
        state.SkipWithError("the DblBuffer answers no IEventSource");
        return;
    }
    if (const HRESULT advised = source->Advise(&listener, 1); advised != S_OK) {
        state.SkipWithError(("Advise returned " + std::to_string(advised)).c_str());
        return;
    }
    AppendLoop(state, vector.get());
    source->Advise(&listener, 0);
}

void AppendListener_BoostMutex(benchmark::State& state) {
    boost::circular_buffer<double> ring(kInputCount);
    std::mutex mutex;
    CountingPeerListener counting;
    PeerListener* listener = &counting;
    const auto& in = SkyDates().starDate;
    std::size_t i = 0;
    for (auto _ : state) {
        {
            std::lock_guard<std::mutex> lock(mutex);
            ring.push_back(in[i++ & kInputMask]);
        }
        benchmark::DoNotOptimize(listener);  // keeps the call virtual
        listener->ElementChanged(-1);
    }
}

}  // namespace

CAL_BENCHMARK(Append_Module);
CAL_BENCHMARK(Append_Boost);
CAL_BENCHMARK(Append_BoostMutex);
CAL_BENCHMARK(ReadByAge_Module);
CAL_BENCHMARK(ReadByAge_Boost);
CAL_BENCHMARK(ReadByAge_BoostMutex);
CAL_BENCHMARK(AppendListener_Module);
CAL_BENCHMARK(AppendListener_BoostMutex);

}  // namespace bench
