#include "module_window.h"

#include <utility>

namespace timetool {

ModuleWindow::ModuleWindow(SmartPtr<IDblVector> vector, std::int32_t capacity)
    : vector_(std::move(vector)), capacity_(capacity) {
    CheckModule(vector_->put_Size(capacity), "IDblVector::put_Size");
}

std::optional<double> ModuleWindow::Push(double value) {
    std::optional<double> leaving;
    if (Size() == capacity_) {
        double oldest = 0.0;
        CheckModule(vector_->get_Element(0, &oldest), "IDblVector::get_Element");
        leaving = oldest;
    }
    CheckModule(vector_->put_Element(-1, value), "IDblVector::put_Element");
    return leaving;
}

std::int32_t ModuleWindow::Size() const {
    std::int32_t count = 0;
    CheckModule(vector_->get_Size(&count), "IDblVector::get_Size");
    return count;
}

void ModuleWindow::ReadInto(std::vector<double>& window) const {
    const std::int32_t count = Size();
    window.resize(static_cast<std::size_t>(count));
    for (std::int32_t age = 0; age < count; ++age) {
        CheckModule(vector_->get_Element(age, &window[static_cast<std::size_t>(age)]), "IDblVector::get_Element");
    }
}

}  // namespace timetool
