#include "Tests/Reference/URLReference.hpp"

#include <algorithm>
#include <array>
#include <vector>

namespace Rellinor::Tests {

namespace {

const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
const std::string digits = "0123456789";
const std::string hexadecimalDigits = digits + "ABCDEFabcdef";
const std::string schemeCharacters = letters + digits + "+-.";
const std::string registeredName = letters + digits + "-._~" + "!$&'()*+,;=";
const std::string userInformation = registeredName + ":";
const std::string pathCharacters = registeredName + ":@/";
const std::string queryCharacters = pathCharacters + "?";

bool isOnly(std::string_view text, const std::string& allowed) {
    return text.find_first_not_of(allowed) == std::string_view::npos;
}

/// Whether a text is made of allowed characters and percent escapes.
bool isMadeOf(std::string_view text, const std::string& allowed) {
    while (!text.empty()) {
        if (text.front() == '%') {
            if (text.size() < 3 || !isOnly(text.substr(1, 2), hexadecimalDigits)) {
                return false;
            }
            text.remove_prefix(3);
        } else if (allowed.contains(text.front())) {
            text.remove_prefix(1);
        } else {
            return false;
        }
    }
    return true;
}

struct Parts {
    std::string_view before;
    bool isParted;
    std::string_view behind;
};

/// A text parted at the first `mark`.
Parts parted(std::string_view text, char mark) {
    const auto position = text.find(mark);
    if (position == std::string_view::npos) {
        return {.before = text, .isParted = false, .behind = ""};
    }
    return {
        .before = text.substr(0, position), .isParted = true, .behind = text.substr(position + 1)};
}

std::vector<std::string_view> pieces(std::string_view text, char mark) {
    std::vector<std::string_view> list;
    for (;;) {
        const Parts parts = parted(text, mark);
        list.push_back(parts.before);
        if (!parts.isParted) {
            return list;
        }
        text = parts.behind;
    }
}

bool isOctet(std::string_view text) {
    return !text.empty() && text.size() <= 3 && isOnly(text, digits) &&
           (text.size() == 1 || text.front() != '0') && std::stoi(std::string(text)) <= 255;
}

bool isIPv4(std::string_view text) {
    const auto parts = pieces(text, '.');
    return parts.size() == 4 && std::ranges::all_of(parts, isOctet);
}

/// How many groups of 16 bits stand in a part of an IPv6 address; absent if something else does.
std::optional<std::size_t> groupsIn(std::string_view text, bool isEndOfAddress) {
    if (text.empty()) {
        return 0;
    }
    const auto parts = pieces(text, ':');
    std::size_t groups = 0;
    for (std::size_t index = 0; index < parts.size(); ++index) {
        const std::string_view part = parts[index];
        if (isEndOfAddress && index == parts.size() - 1 && isIPv4(part)) {
            groups += 2;
        } else if (!part.empty() && part.size() <= 4 && isOnly(part, hexadecimalDigits)) {
            groups += 1;
        } else {
            return std::nullopt;
        }
    }
    return groups;
}

bool isIPv6(std::string_view text) {
    const auto gap = text.find("::");
    if (gap == std::string_view::npos) {
        return groupsIn(text, true) == 8;
    }
    const auto before = groupsIn(text.substr(0, gap), false);
    const auto behind = groupsIn(text.substr(gap + 2), true);
    return before && behind && *before + *behind <= 7;
}

bool isFutureAddress(std::string_view text) {
    if (!text.starts_with('v') && !text.starts_with('V')) {
        return false;
    }
    const Parts parts = parted(text.substr(1), '.');
    return !parts.before.empty() && isOnly(parts.before, hexadecimalDigits) &&
           !parts.behind.empty() && isOnly(parts.behind, userInformation);
}

/// The host of an authority, still escaped; absent if it is none.
std::optional<std::string_view> hostOf(std::string_view authority) {
    if (authority.contains('@')) {
        const Parts parts = parted(authority, '@');
        if (!isMadeOf(parts.before, userInformation)) {
            return std::nullopt;
        }
        authority = parts.behind;
    }
    std::string_view host;
    std::string_view port;
    if (authority.starts_with('[')) {
        const Parts parts = parted(authority.substr(1), ']');
        if (!parts.isParted || (!isIPv6(parts.before) && !isFutureAddress(parts.before))) {
            return std::nullopt;
        }
        if (!parts.behind.empty() && !parts.behind.starts_with(':')) {
            return std::nullopt;
        }
        host = authority.substr(0, parts.before.size() + 2);
        port = parts.behind.empty() ? "" : parts.behind.substr(1);
    } else {
        const Parts parts = parted(authority, ':');
        host = parts.before;
        port = parts.behind;
        if (!isMadeOf(host, registeredName)) {
            return std::nullopt;
        }
    }
    return isOnly(port, digits) ? std::optional(host) : std::nullopt;
}

std::string decoded(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        if (text.front() == '%') {
            bytes += static_cast<char>(std::stoi(std::string(text.substr(1, 2)), nullptr, 16));
            text.remove_prefix(3);
        } else {
            bytes += text.front();
            text.remove_prefix(1);
        }
    }
    return bytes;
}

} // namespace

std::optional<std::string> referenceHost(std::string_view text) {
    if (text.empty()) {
        return std::nullopt;
    }
    const Parts atFragment = parted(text, '#');
    const Parts atQuery = parted(atFragment.before, '?');
    if (!isMadeOf(atFragment.behind, queryCharacters) ||
        !isMadeOf(atQuery.behind, queryCharacters)) {
        return std::nullopt;
    }
    std::string_view rest = atQuery.before;
    // Without a scheme, the first segment of the path has no colon.
    if (parted(rest, '/').before.contains(':')) {
        const Parts atColon = parted(rest, ':');
        const std::string_view scheme = atColon.before;
        if (scheme.empty() || !letters.contains(scheme.front()) ||
            !isOnly(scheme, schemeCharacters)) {
            return std::nullopt;
        }
        rest = atColon.behind;
    }
    if (!rest.starts_with("//")) {
        return std::nullopt;
    }
    const Parts atSlash = parted(rest.substr(2), '/');
    const auto host = hostOf(atSlash.before);
    if (!host || !isMadeOf(atSlash.behind, pathCharacters)) {
        return std::nullopt;
    }
    return decoded(*host);
}

std::string referenceFileURL(std::string_view path) {
    const std::string kept = letters + digits + "!$&'()*+,-./:=@_~";
    const std::string upperCaseDigits = "0123456789ABCDEF";
    std::string text = "file://";
    for (const char character : path) {
        if (kept.contains(character)) {
            text += character;
        } else {
            const std::size_t byte = static_cast<unsigned char>(character);
            text += '%';
            text += upperCaseDigits[byte / 16];
            text += upperCaseDigits[byte % 16];
        }
    }
    return text;
}

} // namespace Rellinor::Tests
