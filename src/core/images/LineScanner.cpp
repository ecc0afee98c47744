#include "LineScanner.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace linescanner::detail {

namespace {

#if defined(__x86_64__)

uint64_t bitsSse2(const char *block, __m128i needle)
{
    uint64_t mask = 0;
    for (int part = 0; part < 4; ++part) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(block + 16 * part));
        mask |= static_cast<uint64_t>(static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, needle))))
            << (16 * part);
    }
    return mask;
}

void classifySse2(const char *data, size_t blocks, uint64_t *crs, uint64_t *backslashes)
{
    const __m128i cr = _mm_set1_epi8('\r');
    const __m128i backslash = _mm_set1_epi8('\\');
    for (size_t b = 0; b < blocks; ++b) {
        crs[b] = bitsSse2(data + b * blockSize, cr);
        backslashes[b] = bitsSse2(data + b * blockSize, backslash);
    }
}

__attribute__((target("avx2"))) uint64_t bitsAvx2(const char *block, __m256i needle)
{
    const auto low = static_cast<uint32_t>(_mm256_movemask_epi8(
        _mm256_cmpeq_epi8(_mm256_loadu_si256(reinterpret_cast<const __m256i *>(block)), needle)));
    const auto high = static_cast<uint32_t>(_mm256_movemask_epi8(
        _mm256_cmpeq_epi8(_mm256_loadu_si256(reinterpret_cast<const __m256i *>(block + 32)), needle)));
    return static_cast<uint64_t>(low) | (static_cast<uint64_t>(high) << 32);
}

__attribute__((target("avx2"))) void classifyAvx2(
    const char *data, size_t blocks, uint64_t *crs, uint64_t *backslashes)
{
    const __m256i cr = _mm256_set1_epi8('\r');
    const __m256i backslash = _mm256_set1_epi8('\\');
    for (size_t b = 0; b < blocks; ++b) {
        crs[b] = bitsAvx2(data + b * blockSize, cr);
        backslashes[b] = bitsAvx2(data + b * blockSize, backslash);
    }
}

#else

uint64_t bitsPlain(const char *block, char c)
{
    uint64_t mask = 0;
    for (size_t i = 0; i < blockSize; ++i)
        mask |= static_cast<uint64_t>(block[i] == c) << i;
    return mask;
}

#endif

} // namespace

void classify(const char *data, size_t blocks, uint64_t *crs, uint64_t *backslashes)
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2"))
        classifyAvx2(data, blocks, crs, backslashes);
    else
        classifySse2(data, blocks, crs, backslashes);
#else
    for (size_t b = 0; b < blocks; ++b) {
        crs[b] = bitsPlain(data + b * blockSize, '\r');
        backslashes[b] = bitsPlain(data + b * blockSize, '\\');
    }
#endif
}

} // namespace linescanner::detail
