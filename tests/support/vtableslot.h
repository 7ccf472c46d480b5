// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

/// The slot in which a virtual member function stands in its class's table, counted from 0; -1 for one that is not
/// virtual. A virtual destructor takes two slots.
///
/// Read from the representation of the member pointer (Itanium C++ ABI, 2.3): a virtual function is told by its offset
/// in the table and one bit, which stands beside the offset, on ARM in the adjustment.
template <typename MemberFunction>
std::ptrdiff_t virtualSlot(MemberFunction member)
{
    static_assert(std::is_member_function_pointer_v<MemberFunction>);
    struct Representation {
        std::intptr_t pointer;
        std::ptrdiff_t adjustment;
    } representation;
    static_assert(sizeof representation == sizeof member);
    std::memcpy(&representation, &member, sizeof member);

#if defined(__arm__) || defined(__aarch64__)
    const bool isVirtual = representation.adjustment & 1;
    const std::intptr_t offset = representation.pointer;
#else
    const bool isVirtual = representation.pointer & 1;
    const std::intptr_t offset = representation.pointer - 1;
#endif
    constexpr auto slotSize = static_cast<std::intptr_t>(sizeof(void*));
    return isVirtual ? offset / slotSize : -1;
}
