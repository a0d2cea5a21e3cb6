#include "TarnwickDirect/Memory.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace TarnwickDirect::Memory {

void holdLittle()
{
#ifdef __GLIBC__
    // By default the threshold grows up to 32 MiB with the largest freed block.
    constexpr int largeBlock = 128 * 1024;
    mallopt(M_MMAP_THRESHOLD, largeBlock);
    mallopt(M_ARENA_MAX, 1);
#endif
}

void giveBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

}  // namespace TarnwickDirect::Memory
