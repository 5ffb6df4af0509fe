// The marker that builds a pixel kernel once per instruction set.
//
// The kernels' loops are plain C++ that the compiler vectorises. GCC and Clang
// can build such a function once per instruction set and pick the copy when
// the library is loaded (an ifunc); the AVX2 copy computes the same values with
// wider registers. Other compilers get the portable copy only, and so do
// ThreadSanitizer builds: the ifunc resolvers run before the sanitizer's
// runtime is set up and crash the process at load time.
#ifndef VYAPI_IP_KERNELS_KERNELCLONES_H
#define VYAPI_IP_KERNELS_KERNELCLONES_H

#if (defined(__GNUC__) || defined(__clang__)) && defined(__x86_64__) && defined(__linux__) && \
    !defined(__SANITIZE_THREAD__)
#define VY_KERNEL_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define VY_KERNEL_CLONES
#endif

#endif
