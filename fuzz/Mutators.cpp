#include "Mutators.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

extern "C" size_t LLVMFuzzerMutate(uint8_t *data, size_t size, size_t maxSize);

namespace Mutators {

namespace {

constexpr qsizetype Growth = 256;             // bytes that one change may add
constexpr int PlainShare = 4;                 // one change in so many is by chance alone
constexpr qsizetype LargestContent = 1 << 18; // bytes of an entry that is looked into

} // namespace

QByteArray bytes(const QByteArray &data, QRandomGenerator *)
{
    QByteArray result = data;
    result.resize(data.size() + Growth);
    result.resize(static_cast<qsizetype>(
        LLVMFuzzerMutate(reinterpret_cast<uint8_t *>(result.data()),
                         static_cast<size_t>(data.size()), static_cast<size_t>(result.size()))));
    return result;
}

QByteArray any(const QByteArray &data, QRandomGenerator *random)
{
    QByteArray result;
    if (data.size() <= LargestContent && random->bounded(PlainShare) > 0) {
        if (data.startsWith("PK"))
            result = zip(data, random);
        else if (data.startsWith("\x89PNG"))
            result = png(data, random);
        else if (data.startsWith('{'))
            result = json(data, random);
    }
    return result.isEmpty() ? bytes(data, random) : result;
}

} // namespace Mutators

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t *data, size_t size, size_t maxSize,
                                          unsigned int seed)
{
    QRandomGenerator random(seed);
    const QByteArray changed = Mutators::any(
        QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)), &random);
    const size_t length = std::min(static_cast<size_t>(changed.size()), maxSize);
    std::memcpy(data, changed.constData(), length);
    return length;
}
