// The order in which both grids sort a column: empty cells, then numbers by value, then texts.
//
// Texts compare by their stored (GBK) bytes without regard to case; for the common Chinese characters that is the order
// of their pronunciation.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ecg {

struct SortKey {
    enum class Kind { Empty, Number, Text };

    Kind Kind = Kind::Empty;
    double Number = 0;
    std::string Text;
};

SortKey MakeSortKey(std::string_view cell);

// The rows, given by their keys, in sorted order. Equal ones keep their order in both directions.
std::vector<std::size_t> SortedOrder(const std::vector<SortKey>& keys, bool descending);

// `rows` in that order.
template <class Row>
std::vector<Row> Reordered(std::vector<Row>&& rows, const std::vector<std::size_t>& order)
{
    std::vector<Row> sorted;
    sorted.reserve(rows.size());
    for (const std::size_t row : order)
        sorted.push_back(std::move(rows[row]));
    return sorted;
}

}  // namespace ecg
