// A listener for the DblBuffer's change events that records each
// notification it receives, in order.
#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "module_interfaces.h"

namespace timetool {

struct VectorEvent {
    std::string name;  // "SizeChanged" or "ElementChanged"
    int index = 0;     // the index passed with ElementChanged, 0 otherwise
};

class VectorListener final : public _IDblVectorEvent {
public:
    static VectorListener* Create() { return new VectorListener(); }
    VectorListener(const VectorListener&) = delete;
    VectorListener& operator=(const VectorListener&) = delete;

    HRESULT QueryInterface(const IID& iid, void** out) override;
    std::int32_t AddRef() override;
    std::int32_t Release() override;
    HRESULT SizeChanged(IDblVector* vector) override;
    HRESULT ElementChanged(IDblVector* vector, std::int32_t index) override;

    // The events received since the last call.
    std::vector<VectorEvent> TakeEvents();

private:
    VectorListener() = default;
    ~VectorListener() = default;

    std::atomic<std::int32_t> references_{1};
    std::vector<VectorEvent> events_;
};

}  // namespace timetool
