#pragma once

#include <cstddef>
#include <string_view>

#include "Host/Inspection/Inspection.hpp"

namespace Rellinor::Host {

/// Looks for texts that arrive other than they were meant.
class CSVTexts {
public:
    /// Looks at the cell of a password that arrives, as it stands.
    void lookAtPassword(std::string_view cell, std::size_t line);

    /// Looks at the cell of any other text that arrives, as it stands.
    void lookAtOther(std::string_view cell, std::size_t line);

    /// @param escapesBackslashes  whether the product writes each backslash twice
    void report(Inspection& inspection, bool escapesBackslashes = false) const;

private:
    void lookForBackslashes(std::string_view text, std::size_t line, Remark& doubled);

    Remark _doubledQuotesInPassword{"a double quote in the password arrives as two", {}};
    Remark _doubledQuotes{"a double quote in another text arrives as two", {}};
    Remark _doubledBackslashesInPassword{"a backslash in the password arrives as two", {}};
    Remark _doubledBackslashes{"a backslash in another text arrives as two", {}};
    Remark _entities{"an HTML escape such as &amp; in the password arrives as it stands", {}};
    bool _hasLoneBackslash = false;
};

} // namespace Rellinor::Host
