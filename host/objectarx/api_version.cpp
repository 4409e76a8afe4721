// The interface's glue that every application links: the version it was built for.
extern "C" int acrxGetApiVersion() {
    return 0x130000;  // 19.0, the major version in the upper sixteen bits
}
