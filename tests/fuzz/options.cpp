// Options of the address sanitizer that the invariants rely on. Memory is filled with 0xd7, as
// FreshMemory in invariants.h expects.
extern "C" const char* __asan_default_options()
{
    return "malloc_fill_byte=215:max_malloc_fill_size=1073741824:detect_stack_use_after_return=1";
}
