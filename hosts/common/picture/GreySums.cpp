#include "hosts/common/picture/GreySums.h"

#include <algorithm>

// 256-bit vectors are chosen when the program runs. Not on Windows: compilers there do not keep the stack
// aligned for them.
#if defined(__GNUC__) && defined(__x86_64__)
#include <immintrin.h>
#define SIMHOST_SSE2
#ifndef _WIN32
#define SIMHOST_AVX2
#endif
#endif

namespace hosts {
namespace {

// A lane of 32 bits gains at most 4 squares of 255 from each vector of levels, so that this many vectors fit.
constexpr std::size_t kVectorsPerRound = 8192;
static_assert(kVectorsPerRound * 4U * 255U * 255U < (std::uint64_t{1} << 31U));

void addPlain(const std::uint8_t* levels, std::size_t count, GreySums& sums) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t level = levels[i];
        sums.levels += level;
        sums.squares += level * level;
    }
}

// Even and odd levels become numbers of 16 bits, of which one instruction squares and adds two.
#ifdef SIMHOST_SSE2
void addVectors(const __m128i* from, std::size_t vectors, GreySums& sums) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i even = _mm_set1_epi16(0xff);
    __m128i total = zero;
    __m128i squaresEven = zero;
    __m128i squaresOdd = zero;
    for (std::size_t i = 0; i < vectors; ++i) {
        const __m128i some = _mm_loadu_si128(from + i);
        const __m128i a = _mm_and_si128(some, even);
        const __m128i b = _mm_srli_epi16(some, 8);
        total = _mm_add_epi64(total, _mm_sad_epu8(some, zero));
        squaresEven = _mm_add_epi32(squaresEven, _mm_madd_epi16(a, a));
        squaresOdd = _mm_add_epi32(squaresOdd, _mm_madd_epi16(b, b));
    }
    alignas(16) std::uint64_t totals[2];
    alignas(16) std::uint32_t squares[2][4];
    _mm_store_si128(reinterpret_cast<__m128i*>(totals), total);
    _mm_store_si128(reinterpret_cast<__m128i*>(squares[0]), squaresEven);
    _mm_store_si128(reinterpret_cast<__m128i*>(squares[1]), squaresOdd);
    sums.levels += totals[0] + totals[1];
    for (int lane = 0; lane < 4; ++lane) {
        sums.squares += std::uint64_t{squares[0][lane]} + squares[1][lane];
    }
}
#endif

#ifdef SIMHOST_AVX2
__attribute__((target("avx2"))) void addWideVectors(const __m256i* from, std::size_t vectors,
                                                    GreySums& sums) {
    const __m256i zero = _mm256_setzero_si256();
    const __m256i even = _mm256_set1_epi16(0xff);
    __m256i total = zero;
    __m256i squaresEven = zero;
    __m256i squaresOdd = zero;
    for (std::size_t i = 0; i < vectors; ++i) {
        const __m256i some = _mm256_loadu_si256(from + i);
        const __m256i a = _mm256_and_si256(some, even);
        const __m256i b = _mm256_srli_epi16(some, 8);
        total = _mm256_add_epi64(total, _mm256_sad_epu8(some, zero));
        squaresEven = _mm256_add_epi32(squaresEven, _mm256_madd_epi16(a, a));
        squaresOdd = _mm256_add_epi32(squaresOdd, _mm256_madd_epi16(b, b));
    }
    alignas(32) std::uint64_t totals[4];
    alignas(32) std::uint32_t squares[2][8];
    _mm256_store_si256(reinterpret_cast<__m256i*>(totals), total);
    _mm256_store_si256(reinterpret_cast<__m256i*>(squares[0]), squaresEven);
    _mm256_store_si256(reinterpret_cast<__m256i*>(squares[1]), squaresOdd);
    sums.levels += totals[0] + totals[1] + totals[2] + totals[3];
    for (int lane = 0; lane < 8; ++lane) {
        sums.squares += std::uint64_t{squares[0][lane]} + squares[1][lane];
    }
}
#endif

// Adds whole vectors round by round and returns how many levels are done.
template <typename Vector, typename Add>
std::size_t addRounds(const std::uint8_t* levels, std::size_t count, GreySums& sums, Add add) {
    const std::size_t vectors = count / sizeof(Vector);
    for (std::size_t done = 0; done < vectors; done += kVectorsPerRound) {
        add(reinterpret_cast<const Vector*>(levels) + done, std::min(vectors - done, kVectorsPerRound), sums);
    }
    return vectors * sizeof(Vector);
}

} // namespace

GreySums greySums(const std::uint8_t* levels, std::size_t count) {
    GreySums sums;
    std::size_t done = 0;
#ifdef SIMHOST_AVX2
    if (__builtin_cpu_supports("avx2")) {
        done = addRounds<__m256i>(levels, count, sums, addWideVectors);
    }
#endif
#ifdef SIMHOST_SSE2
    done += addRounds<__m128i>(levels + done, count - done, sums, addVectors);
#endif
    addPlain(levels + done, count - done, sums);
    return sums;
}

} // namespace hosts
