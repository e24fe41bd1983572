// A DblBuffer used as a sliding window: values go in through IDblVector and
// the window is read back from it, so what timetool reports is the module's
// window.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "module_session.h"

namespace timetool {

class ModuleWindow {
public:
    // Sizes `vector` to `capacity` values (>= 1), which empties it; throws
    // ToolError when the module refuses.
    ModuleWindow(SmartPtr<IDblVector> vector, std::int32_t capacity);

    // Appends `value`; returns the oldest value it pushed out, read from the
    // buffer before the append, or nothing while the buffer was not full.
    std::optional<double> Push(double value);
    std::int32_t Size() const;
    // The window oldest first.
    void ReadInto(std::vector<double>& window) const;

    IDblVector* vector() const { return vector_.get(); }

private:
    SmartPtr<IDblVector> vector_;
    std::int32_t capacity_;
};

}  // namespace timetool
