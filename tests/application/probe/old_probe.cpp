// An application that was built for another version of the interface.
extern "C" {
__attribute__((visibility("default"))) int acrxEntryPoint(int, void*) { return 0; }
__attribute__((visibility("default"))) int acrxGetApiVersion() { return 0x120002; }
}
