#include "Platform/RegularExpression.hpp"

#include <boost/regex.hpp>

#include "Platform/Fault.hpp"

namespace Rellinor {

namespace {

// The traits of the C library: those of the C++ library share a cache behind a lock.
using Expression = boost::basic_regex<char, boost::c_regex_traits<char>>;

} // namespace

struct RegularExpression::Compiled {
    Expression expression;
    boost::cmatch match; // kept for its memory
};

RegularExpression::RegularExpression(std::string_view pattern)
    : _compiled(std::make_unique<Compiled>()) {
    const auto status = _compiled->expression
                            .assign(pattern.data(), pattern.data() + pattern.size(),
                                    Expression::perl | Expression::icase | Expression::no_except)
                            .status();
    require(status == 0);
}

RegularExpression::~RegularExpression() = default;

std::optional<std::string_view> RegularExpression::firstMatch(std::string_view text) {
    boost::cmatch& match = _compiled->match;
    if (!boost::regex_search(text.data(), text.data() + text.size(), match,
                             _compiled->expression)) {
        return std::nullopt;
    }
    return text.substr(static_cast<std::size_t>(match.position()),
                       static_cast<std::size_t>(match.length()));
}

} // namespace Rellinor
