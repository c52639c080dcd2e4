// A library that no provider can be got from.
extern "C" __attribute__((visibility("default"))) int notAnEntryPoint();
int notAnEntryPoint() {
    return 0;
}
