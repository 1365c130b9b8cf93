#include "Platform/URLHost.hpp"

#include <algorithm>

#include <boost/url/decode_view.hpp>
#include <boost/url/parse.hpp>
#include <boost/url/url_view.hpp>

namespace Rellinor {

namespace {

/// Tells most texts apart without parsing them: only an authority that begins with the host, has a
/// user before it, or escapes some of its characters, can have it.
bool mayHaveHost(std::string_view text, std::string_view host) noexcept {
    const auto slashes = text.find("//");
    if (slashes == std::string_view::npos) {
        return false;
    }
    const std::string_view rest = text.substr(slashes + 2);
    if (rest.starts_with(host)) {
        return true;
    }
    if (!rest.contains('@') && !rest.contains('%')) {
        return false; // which settles nearly all
    }
    const auto endOfAuthority = std::ranges::find_if(rest, [](char character) {
        return character == '/' || character == '?' || character == '#';
    });
    const std::string_view authority(rest.begin(), endOfAuthority);
    return authority.contains('@') || authority.contains('%');
}

} // namespace

bool hasHost(std::string_view text, std::string_view host) noexcept {
    if (!mayHaveHost(text, host)) {
        return false; // without parsing it
    }
    const auto url = boost::urls::parse_uri_reference({text.data(), text.size()});
    if (!url.has_value()) {
        return false;
    }
    // The grammar has nothing but a path behind an authority; the parser lets other text pass
    // there.
    const std::string_view path = url->encoded_path();
    if (!path.empty() && !path.starts_with('/')) {
        return false;
    }
    const boost::urls::pct_string_view encoded = url->encoded_host();
    return *encoded == boost::urls::string_view(host.data(), host.size());
}

} // namespace Rellinor
