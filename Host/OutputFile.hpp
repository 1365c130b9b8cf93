#pragma once

#include <cstdint>
#include <ostream>
#include <stdexcept>
#include <string>

#include "Host/DescriptorBuffer.hpp"

namespace Rellinor::Host {

/// An output file cannot be written; the text names it and says why, in one line.
class OutputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What becomes of a file that bears the name already.
enum class Existing : std::uint8_t {
    kept,
    replaced,
};

/// A file that is there whole or not at all, readable and writable for its owner alone.
///
/// It is written without a name, and gets its own when it is complete; whatever ends the process
/// before leaves nothing behind. Where the system has no files without names it has another name
/// beside its place meanwhile, and a signal leaves nothing behind unless it is one that cannot be
/// caught. A link counts as a file of its own: it is kept or replaced, never followed. There is one
/// such file at a time.
class OutputFile {
public:
    /// @throws OutputError  there is such a file that is to be kept, or that is neither a file
    ///                      nor a link to one or to nothing; or the folder cannot be written to
    OutputFile(std::string path, Existing existing);

    /// Leaves nothing behind unless it was committed.
    ~OutputFile();

    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Where to write the contents.
    [[nodiscard]] std::ostream& stream() noexcept { return _stream; }

    /// The folder of its place.
    [[nodiscard]] std::string folder() const { return beside("."); }

    /// Puts the file in its place, as the last call. No file that came there meanwhile is lost if
    /// existing ones are to be kept; this takes a file system that has hard links.
    ///
    /// @throws OutputError  something could not be written, or such a file came meanwhile
    void commit();

private:
    [[noreturn]] void fail(const std::string& reason) const;
    [[noreturn]] void fail(int error) const;

    /// Opens the file.
    [[nodiscard]] int open();

    /// Gives the file that is complete its name; 0, or an `errno`.
    [[nodiscard]] int place() const;
    [[nodiscard]] int placeUnnamed() const;

    /// The name of a file beside the place of this one.
    [[nodiscard]] std::string beside(const std::string& name) const;

    std::string _path;
    Existing _existing;
    int _descriptor = -1;
    std::string _temporary; ///< the name of a file that has another one meanwhile, or empty
    DescriptorBuffer _buffer;
    std::ostream _stream;
};

} // namespace Rellinor::Host
