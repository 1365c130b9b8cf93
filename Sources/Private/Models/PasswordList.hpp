#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "Private/Memory/ChunkedList.hpp"
#include "Private/Models/ImportedPassword.hpp"
#include "Private/Models/SmallPassword.hpp"

namespace Rellinor {

/// Logins behind each other, each as small as may be. One stays where it is.
class PasswordList {
public:
    /// @throws std::bad_alloc  the list is then as it was
    void append(const ImportedPassword& password) {
        if (SmallPassword::mayHold(password)) [[unlikely]] {
            if (const auto small = SmallPassword::of(password)) {
                put(*small);
                return;
            }
        }
        put(password);
    }

    [[nodiscard]] std::size_t size() const noexcept { return _size; }

    void forEach(auto&& visit) const {
        for (std::size_t index = 0; index < _bytes.numberOfChunks(); ++index) {
            const std::span<const std::byte> chunk = _bytes.chunk(index);
            for (std::size_t place = 0; place < chunk.size();) {
                const void* const stored = &chunk[place];
                const auto& password = *static_cast<const StoredPassword*>(stored);
                visit(password);
                place += password.isSmall() ? sizeof(SmallPassword) : sizeof(ImportedPassword);
            }
        }
    }

private:
    template <typename Password>
    void put(const Password& password) {
        void* const place = _bytes.extend(sizeof(Password)).data();
        std::construct_at(static_cast<Password*>(place), password);
        ++_size;
    }

    ChunkedList<std::byte> _bytes;
    std::size_t _size = 0;
};

} // namespace Rellinor
