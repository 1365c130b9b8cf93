#include "Tests/Support/Zip.hpp"

#include <zlib.h>

namespace Rellinor::Tests {

namespace {

const Bytef* bytesOf(std::string_view text) {
    return reinterpret_cast<const Bytef*>(text.data()); // NOLINT(*-cast)
}

std::string deflated(std::string_view text, int flush) {
    std::string packed(text.size() + 1000, '\0');
    z_stream stream = {};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 9, Z_DEFAULT_STRATEGY);
    stream.next_in = const_cast<Bytef*>(bytesOf(text)); // NOLINT(*-const-cast)
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data()); // NOLINT(*-cast)
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, flush);
    packed.resize(packed.size() - stream.avail_out);
    deflateEnd(&stream);
    return packed;
}

} // namespace

std::string zipNumber(std::size_t value, std::size_t size) {
    std::string bytes;
    for (; size > 0; --size, value /= 256) {
        bytes += static_cast<char>(value % 256);
    }
    return bytes;
}

std::string deflatedZeros(std::size_t mebibytes) {
    const std::string one = deflated(std::string(std::size_t{1} << 20U, '\0'), Z_FULL_FLUSH);
    std::string all;
    for (std::size_t count = 0; count < mebibytes; ++count) {
        all += one;
    }
    return all + deflated("", Z_FINISH);
}

std::string zipOf(const std::vector<ZipFile>& files, std::string_view comment) {
    std::string bytes;
    std::string list;
    for (const ZipFile& file : files) {
        const std::string content = file.isDeflated && !file.packed
                                        ? deflated(file.contents, Z_FINISH)
                                        : std::string(file.packed.value_or(file.contents));
        const std::uint32_t checksum = file.checksum.value_or(
            static_cast<std::uint32_t>(crc32_z(0, bytesOf(file.contents), file.contents.size())));
        const std::size_t packedSize = file.packedSize.value_or(content.size());
        const std::size_t size = file.size.value_or(file.contents.size());
        const std::string common =
            zipNumber((file.isEncrypted ? 1U : 0U) + (file.hasSizesInFront ? 0U : 8U), 2) +
            zipNumber(file.method.value_or(file.isDeflated ? 8U : 0U), 2) + zipNumber(0, 4);
        const std::string sizes =
            zipNumber(checksum, 4) + zipNumber(packedSize, 4) + zipNumber(size, 4);
        const std::string_view nameInFront = file.nameInFront.value_or(file.name);
        list += "PK\1\2" + zipNumber(20, 2) + zipNumber(20, 2) + common + sizes +
                zipNumber(file.name.size(), 2) + std::string(12, '\0') +
                zipNumber(file.begin.value_or(bytes.size()), 4) + std::string(file.name);
        bytes += "PK\3\4" + zipNumber(20, 2) + common +
                 (file.hasSizesInFront ? sizes : std::string(12, '\0')) +
                 zipNumber(nameInFront.size(), 2) + zipNumber(0, 2) + std::string(nameInFront) +
                 content;
    }
    return bytes + list + "PK\5\6" + zipNumber(0, 4) + zipNumber(files.size(), 2) +
           zipNumber(files.size(), 2) + zipNumber(list.size(), 4) + zipNumber(bytes.size(), 4) +
           zipNumber(comment.size(), 2) + std::string(comment);
}

} // namespace Rellinor::Tests
