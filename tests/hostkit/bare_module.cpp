// A loadable library without the framework's entry point, for the kit's tests.
extern "C" __attribute__((visibility("default"))) int KitProbeBareMarker() { return 1; }
