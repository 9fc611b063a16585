namespace hmitest {
// Windows' COM and MSXML allocate outside this program; only the library's own allocations fail.
void InstallPlatformAllocationHook(bool (*)()) {}
}
