#pragma once
// Loops over pixels that are compiled twice, for every processor and for those with 256-bit vectors.

/// Marks a function whose loops are faster with wider vectors: the best copy is chosen when the program is
/// loaded. All copies give the same numbers, because no multiplication is fused with an addition
/// (-ffp-contract=off). If the tool chain cannot choose at load time (Windows, other compilers, sanitizers
/// that start later than the choice), the mark has no effect, and the loops use the vectors of every
/// processor.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__ELF__) &&                   \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define HOSTS_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define HOSTS_VECTOR_CLONES
#endif
