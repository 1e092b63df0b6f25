#include "patients/GridSort.h"

#include "core/Numbers.h"
#include "core/PatientNumber.h"
#include "core/formats/CodePage.h"

#include <algorithm>
#include <numeric>

namespace ecg {
namespace {

bool Before(const SortKey& left, const SortKey& right)
{
    if (left.Kind != right.Kind)
        return left.Kind < right.Kind;
    return left.Kind == SortKey::Kind::Number ? left.Number < right.Number : left.Text < right.Text;
}

}  // namespace

SortKey MakeSortKey(std::string_view cell)
{
    if (cell.empty())
        return {};
    if (const auto number = ParseDecimal(cell))
        return {SortKey::Kind::Number, *number, {}};
    return {SortKey::Kind::Text, 0, GbkFromUtf8(UpperCase(cell))};
}

std::vector<std::size_t> SortedOrder(const std::vector<SortKey>& keys, bool descending)
{
    std::vector<std::size_t> order(keys.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return descending ? Before(keys[right], keys[left]) : Before(keys[left], keys[right]);
    });
    return order;
}

}  // namespace ecg
