#include "Public/Layout.hpp"

#include <algorithm>
#include <array>

#include "Private/Detection/BuiltIn.hpp"

namespace Rellinor {

namespace {

struct LayoutName {
    Layout layout;
    std::string_view identifier;
    std::string_view description;
};

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): the list is one
#define RELLINOR_LAYOUT_NAME(number, name, nameInC, ...) LayoutName{Layout::name, __VA_ARGS__},

/// In the order of the numbers.
constexpr auto names = std::array{RELLINOR_LAYOUTS(RELLINOR_LAYOUT_NAME, RELLINOR_LAYOUT_NAME)};

constexpr auto layouts = [] {
    std::array<Layout, names.size()> all{};
    std::ranges::transform(names, all.begin(), &LayoutName::layout);
    return all;
}();

const LayoutName* nameOf(Layout layout) noexcept {
    const auto* const found = std::ranges::find(names, layout, &LayoutName::layout);
    return found != names.end() ? found : nullptr;
}

} // namespace

std::span<const Layout> allLayouts() noexcept {
    return layouts;
}

std::string_view identifier(Layout layout) noexcept {
    const LayoutName* const name = nameOf(layout);
    return name != nullptr ? name->identifier : std::string_view();
}

std::optional<Layout> layoutWithIdentifier(std::string_view identifier) noexcept {
    const auto* const found = std::ranges::find(names, identifier, &LayoutName::identifier);
    return found != names.end() ? std::optional(found->layout) : std::nullopt;
}

std::string_view description(Layout layout) noexcept {
    const LayoutName* const name = nameOf(layout);
    return name != nullptr ? name->description : std::string_view();
}

bool isRead(Layout layout) noexcept {
    return nameOf(layout) != nullptr && !isLeftOutOfBuild(layout);
}

} // namespace Rellinor
