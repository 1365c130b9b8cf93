#include "Platform/NSError.hpp"

namespace Rellinor {

std::string NSError::localizedDescription() const {
    std::string description = "The operation couldn’t be completed. (";
    description += _domain;
    description += " error ";
    description += std::to_string(_code);
    description += ".)";
    return description;
}

} // namespace Rellinor
