#pragma once
// Loops over pixels that are compiled twice, for every processor and for those with 256-bit vectors.

/// Marks a function whose loops gain from wider vectors: the fitting copy is chosen when the program is
/// loaded. Both copies give the same numbers, for no multiplication is joined with an addition
/// (-ffp-contract=off). Where the tool chain has no such choice (Windows, other compilers, sanitizers that
/// start later than the choice) the mark means nothing, and the loops run with the vectors that every
/// processor has.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__ELF__) &&                   \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define HOSTS_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define HOSTS_VECTOR_CLONES
#endif
