// The number types of the fixed records: little endian, unaligned, the same on every machine.
#pragma once

#include <boost/endian/arithmetic.hpp>

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace ecg {

using Int16 = boost::endian::little_int16_t;
using Int32 = boost::endian::little_int32_t;
using Float32 = boost::endian::little_float32_t;
using Byte = std::uint8_t;

static_assert(alignof(Int16) == 1 && alignof(Int32) == 1 && alignof(Float32) == 1);

// What lets a record be read and written as its bytes.
template <class Record, std::size_t Size>
inline constexpr bool
    IsFixedRecord = sizeof(Record) == Size &&
                    alignof(Record) == 1 && std::is_trivially_copyable_v<Record>&& std::is_standard_layout_v<Record>;

}  // namespace ecg
