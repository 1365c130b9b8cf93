#include "Host/Layouts.hpp"

#include <iomanip>
#include <ostream>
#include <vector>

#include <Rellinor/Layout.hpp>

namespace Rellinor::Host {

std::span<const std::string_view> layoutNames() {
    static const auto names = [] {
        std::vector<std::string_view> all;
        for (const Layout layout : allLayouts()) {
            if (isRead(layout)) {
                all.push_back(identifier(layout));
            }
        }
        return all;
    }();
    return names;
}

void listLayouts(std::ostream& out) {
    for (const Layout layout : allLayouts()) {
        if (isRead(layout)) {
            out << std::left << std::setw(26) << identifier(layout) << description(layout) << '\n';
        }
    }
}

} // namespace Rellinor::Host
