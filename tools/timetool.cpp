#include <cstdio>

int main() {
    std::puts("timetool");
    return 0;
}
