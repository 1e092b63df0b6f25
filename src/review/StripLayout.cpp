#include "review/StripLayout.h"

#include "core/Numbers.h"
#include "core/SharedState.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ecg {
namespace {

// The strips of one band and the rows of the page that they take.
struct Group {
    ecg::Band Band;
    std::vector<std::size_t> Leads;
    std::size_t FirstRow = 0;
};

// A form as its groups, and how many rows they fill together.
struct Form {
    std::vector<Group> Groups;
    std::size_t Rows = 0;
};

std::vector<std::size_t> ShownLeads(const ReviewState& state, std::size_t first, std::size_t count)
{
    std::vector<std::size_t> leads;
    for (std::size_t lead = first; lead < first + count; ++lead)
        if (!state.Hidden[lead])
            leads.push_back(lead);
    return leads;
}

// Columns of leads side by side, over the whole width. Each column has rows of its own when nothing stands below.
Form Columns(const ReviewState& state, std::size_t count)
{
    Form form;
    const std::size_t leads = WilsonLeadCount / count;
    const double width = TraceAreaWidth / static_cast<double>(count);
    for (std::size_t i = 0; i < count; ++i) {
        form.Groups.push_back(
            {{.Left = width * static_cast<double>(i), .Width = width}, ShownLeads(state, i * leads, leads)});
        form.Rows = std::max(form.Rows, form.Groups.back().Leads.size());
    }
    return form;
}

Form OneColumn(const ReviewState& state)
{
    Form form = Columns(state, 1);
    form.Groups[0].Band.Width = ViewWidth(state);
    return form;
}

Form Contrast(const ReviewState& state)
{
    Form form = Columns(state, 2);
    for (Group& group : form.Groups)
        group.Leads = ShownLeads(state, 0, WilsonLeadCount);
    form.Groups[1].Band.Comparison = true;
    form.Rows = form.Groups[0].Leads.size();
    return form;
}

// Puts long leads below what is there, in as many lines as they need.
void AddLongLeads(Form& form, const ReviewState& state, std::size_t count, const ViewScale& scale, double longestLine)
{
    const double whole = ViewWidth(state);
    const std::vector<std::size_t> leads(state.LongLead.begin(),
                                         state.LongLead.begin() + static_cast<std::ptrdiff_t>(count));
    for (double done = 0; done < whole; done += longestLine) {
        const Band band{.Width = std::min(longestLine, whole - done),
                        .First = RoundToInt(done * FramesPerSecond / scale.Speed)};
        form.Groups.push_back({band, leads, form.Rows});
        form.Rows += count;
    }
}

Form FormOf(const ReviewState& state, const ViewScale& scale, double longestLine)
{
    if (state.Mode != ReviewMode::Ecg)
        return OneColumn(state);
    Form form;
    switch (state.Form) {
    case EcgForm::Rows12:
        return OneColumn(state);
    case EcgForm::Columns6x2:
        return Columns(state, 2);
    case EcgForm::Columns4x3:
        return Columns(state, 3);
    case EcgForm::Columns4x3And1:
    case EcgForm::Columns4x3And2:
        form = Columns(state, 3);
        AddLongLeads(form, state, state.Form == EcgForm::Columns4x3And1 ? 1 : 2, scale, longestLine);
        return form;
    case EcgForm::LongLeads:
        AddLongLeads(form, state, state.LongLead.size(), scale, longestLine);
        return form;
    case EcgForm::Contrast:
        return Contrast(state);
    }
    return form;
}

// How far a signal reaches from its zero line, in mm.
struct Extent {
    double Up = 0;
    double Down = 0;
};

// The extremes grow from far inside, so that a lead without a signal still takes a place, if a crossed one.
Extent ExtentOf(std::span<const std::int16_t> samples, double gain)
{
    constexpr int firstHighest = -1024;
    constexpr int firstLowest = 1024;
    int highest = firstHighest;
    int lowest = firstLowest;
    for (const std::int16_t sample : samples) {
        highest = std::max<int>(highest, sample);
        lowest = std::min<int>(lowest, sample);
    }
    return {highest * gain / CountsPerMv, -lowest * gain / CountsPerMv};
}

std::vector<double> EvenTops(const Group& group, std::size_t rows)
{
    std::vector<double> tops(group.Leads.size());
    for (std::size_t i = 0; i < tops.size(); ++i)
        tops[i] = static_cast<double>(group.FirstRow + i + 1) * TraceAreaHeight / static_cast<double>(rows + 1);
    return tops;
}

// Each signal gets the height it needs, and what remains is shared as equal gaps.
std::vector<double> AutoTops(const Group& group, const ViewSamples& samples, double gain)
{
    std::vector<Extent> extents;
    double remains = group.Band.Bottom - group.Band.Top;
    for (const std::size_t lead : group.Leads) {
        const auto row = samples.Of(lead);
        const auto first = std::min(static_cast<std::size_t>(group.Band.First), row.size());
        extents.push_back(ExtentOf(row.subspan(first), gain));
        remains -= extents.back().Up + extents.back().Down;
    }
    const double gap = remains / static_cast<double>(group.Leads.size() + 1);
    std::vector<double> tops;
    double used = group.Band.Top;
    for (const Extent& extent : extents) {
        tops.push_back(used + gap + extent.Up);
        used = tops.back() + extent.Down;
    }
    return tops;
}

// The height at which row `row` of `rows` begins: half way between two zero lines, or the edge of the area.
double RowEdge(std::size_t row, std::size_t rows)
{
    if (row == 0 || row >= rows)
        return row == 0 ? 0 : TraceAreaHeight;
    return (static_cast<double>(row) + 0.5) * TraceAreaHeight / static_cast<double>(rows + 1);
}

// A column that has nothing below it is spread over the whole height, whatever its neighbours hold.
std::size_t RowsOf(const Form& form, const Group& group)
{
    const bool alone = std::ranges::all_of(form.Groups, [](const Group& other) { return other.FirstRow == 0; });
    return alone ? group.Leads.size() : form.Rows;
}

// Long leads begin behind the highest column, so it is that one which ends where they begin.
std::size_t EndRow(const Form& form, const Group& group)
{
    std::size_t end = form.Rows;
    for (const Group& other : form.Groups)
        if (other.FirstRow > group.FirstRow)
            end = std::min(end, other.FirstRow);
    return end;
}

}  // namespace

StripLayout LayOutStrips(const ReviewState& state, const ViewScale& scale, double longestLine, const ViewSamples& view,
                         const ViewSamples& comparison)
{
    Form form = FormOf(state, scale, longestLine);
    StripLayout layout;
    for (Group& group : form.Groups) {
        const std::size_t rows = RowsOf(form, group);
        group.Band.Top = RowEdge(group.FirstRow, form.Rows);
        group.Band.Bottom = RowEdge(EndRow(form, group), form.Rows);
        const auto tops = state.AutoInterval ? AutoTops(group, group.Band.Comparison ? comparison : view, scale.Gain)
                                             : EvenTops(group, rows);
        for (std::size_t i = 0; i < tops.size(); ++i)
            layout.Strips.push_back({group.Leads[i], layout.Bands.size(), tops[i]});
        layout.Bands.push_back(group.Band);
    }
    return layout;
}

}  // namespace ecg
