// _FIREDblVectorEvent: the firing side of the vector's change events. It holds
// no state; T's event source supplies the listeners.
#pragma once

#include <cstdint>

#include "module_interfaces.h"

template <class T>
class _FIREDblVectorEvent {
public:
    // Listener results are ignored.
    void Fire_SizeChanged(IDblVector* vector) {
        Source().NotifyListeners(
            [vector](void* listener) { static_cast<_IDblVectorEvent*>(listener)->SizeChanged(vector); });
    }
    void Fire_ElementChanged(IDblVector* vector, std::int32_t index) {
        Source().NotifyListeners([vector, index](void* listener) {
            static_cast<_IDblVectorEvent*>(listener)->ElementChanged(vector, index);
        });
    }

protected:
    _FIREDblVectorEvent() = default;
    ~_FIREDblVectorEvent() = default;

private:
    T& Source() { return *static_cast<T*>(this); }
};
