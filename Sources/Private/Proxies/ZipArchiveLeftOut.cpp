// In place of ZipArchive.cpp for a library without archives.

#include "Private/Proxies/ZipArchive.hpp"

namespace Rellinor {

std::expected<ZipArchive, FailureReason> ZipArchive::opened(const ExportFile& /*file*/,
                                                            std::uint64_t /*mostBytes*/,
                                                            std::uint64_t /*mostUnpacked*/) {
    return std::unexpected(FailureReason::notBuiltIn);
}

std::expected<FilePart, FailureReason> ZipArchive::beginning(const ZipMember& /*member*/,
                                                             std::size_t /*most*/) const {
    return std::unexpected(FailureReason::notBuiltIn);
}

std::expected<std::span<char>, FailureReason> ZipArchive::read(const ZipMember& /*member*/,
                                                               ImportMemory& /*memory*/) {
    return std::unexpected(FailureReason::notBuiltIn);
}

} // namespace Rellinor
