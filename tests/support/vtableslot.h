// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

/// The slot of a virtual member function in its class's table, counted from 0; -1 when it is not virtual. A virtual
/// destructor takes two slots.
///
/// It is read from the representation of the member pointer (Itanium C++ ABI, 2.3). For a virtual function that holds
/// the offset in the table and one bit, which is beside the offset or, on ARM, in the adjustment.
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
    constexpr auto slotSize = std::intptr_t(sizeof(void*));
    return isVirtual ? offset / slotSize : -1;
}
