#include "vector/vector_host.h"

#include <gtest/gtest.h>

const VectorIIDs& Iids() {
    static const VectorIIDs iids;
    return iids;
}

SmartPtr<IDblVector> CreateVector() { return LoadModule("Calendar").Create<IDblVector>(L"DblBuffer", Iids().vector); }

void AppendAll(IDblVector* vector, std::initializer_list<double> values) {
    for (double value : values) EXPECT_EQ(vector->put_Element(-1, value), S_OK);
}

ElementRead ReadAt(IDblVector* vector, std::int32_t index) {
    ElementRead read{S_OK, kUntouched};
    read.hr = vector->get_Element(index, &read.value);
    return read;
}
