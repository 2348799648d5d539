#include "Palette.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace drawing {

namespace {

constexpr int Refinements = 4;

struct Entry {
    std::array<double, 3> parts;  // Weighted as the eye sees them.
    double weight;
};
using Entries = std::vector<Entry>;

constexpr std::array<double, 3> EyeWeights{0.8, 1.2, 0.6};

std::array<double, 3> PartsOf(std::uint32_t color)
{
    return {static_cast<double>((color >> 16) & 255) * EyeWeights[0],
            static_cast<double>((color >> 8) & 255) * EyeWeights[1], static_cast<double>(color & 255) * EyeWeights[2]};
}

std::uint32_t ColorOf(const std::array<double, 3>& parts)
{
    std::uint32_t color = 0;
    for (std::size_t i = 0; i < 3; ++i)
        color = color << 8 | static_cast<std::uint32_t>(std::clamp(std::lround(parts[i] / EyeWeights[i]), 0L, 255L));
    return color;
}

double Distance(const std::array<double, 3>& a, const std::array<double, 3>& b)
{
    const double x = a[0] - b[0], y = a[1] - b[1], z = a[2] - b[2];
    return x * x + y * y + z * z;
}

// A group of colours with its middle and the part along which it is spread most.
struct Group {
    Entries entries;
    std::array<double, 3> mean{};
    std::size_t widest = 0;
    double spread = 0;
};

Group GroupOf(Entries entries)
{
    Group group{std::move(entries), {}, 0, 0};
    double weight = 0;
    std::array<double, 3> sum{}, squares{};
    for (const Entry& entry : group.entries) {
        weight += entry.weight;
        for (std::size_t i = 0; i < 3; ++i) {
            sum[i] += entry.weight * entry.parts[i];
            squares[i] += entry.weight * entry.parts[i] * entry.parts[i];
        }
    }
    for (std::size_t i = 0; i < 3; ++i) {
        group.mean[i] = sum[i] / weight;
        const double spread = squares[i] - sum[i] * group.mean[i];
        if (spread > group.spread) {
            group.spread = spread;
            group.widest = i;
        }
    }
    return group;
}

void SplitWidest(std::vector<Group>& groups)
{
    const auto widest =
        std::max_element(groups.begin(), groups.end(), [](const Group& a, const Group& b) { return a.spread < b.spread; });
    const std::size_t part = widest->widest;
    const double middle = widest->mean[part];
    Entries low = std::move(widest->entries);
    const auto edge =
        std::stable_partition(low.begin(), low.end(), [&](const Entry& entry) { return entry.parts[part] < middle; });
    Entries high(edge, low.end());
    low.erase(edge, low.end());
    *widest = GroupOf(std::move(low));
    groups.push_back(GroupOf(std::move(high)));
}

std::size_t NearestOf(const std::vector<std::array<double, 3>>& middles, const std::array<double, 3>& parts)
{
    std::size_t best = 0;
    for (std::size_t i = 1; i < middles.size(); ++i)
        if (Distance(middles[i], parts) < Distance(middles[best], parts))
            best = i;
    return best;
}

void Refine(std::vector<std::array<double, 3>>& middles, const Entries& entries)
{
    std::vector<std::array<double, 4>> sums(middles.size());
    for (const Entry& entry : entries) {
        std::array<double, 4>& sum = sums[NearestOf(middles, entry.parts)];
        for (std::size_t i = 0; i < 3; ++i)
            sum[i] += entry.parts[i] * entry.weight;
        sum[3] += entry.weight;
    }
    for (std::size_t i = 0; i < middles.size(); ++i)
        if (sums[i][3] > 0)
            middles[i] = {sums[i][0] / sums[i][3], sums[i][1] / sums[i][3], sums[i][2] / sums[i][3]};
}

// Colours next to each other are counted together: five bits a part are fine enough to choose by.
Entries EntriesOf(const Histogram& histogram)
{
    std::map<std::uint32_t, Entry> cells;
    for (const auto& [color, count] : histogram) {
        Entry& entry = cells.try_emplace(color & 0xF8F8F8U, Entry{{0, 0, 0}, 0}).first->second;
        const std::array<double, 3> parts = PartsOf(color);
        for (std::size_t i = 0; i < 3; ++i)
            entry.parts[i] += parts[i] * count;
        entry.weight += count;
    }
    Entries entries;
    for (const auto& [cell, sum] : cells)
        entries.push_back({{sum.parts[0] / sum.weight, sum.parts[1] / sum.weight, sum.parts[2] / sum.weight},
                           std::pow(sum.weight, 0.6)});  // Small things such as lights in the eyes must not starve.
    return entries;
}

}

void Count(const Picture& picture, Histogram& histogram)
{
    for (const std::uint32_t pixel : picture.pixels)
        if (pixel != 0)
            ++histogram[pixel & 0xFFFFFFU];
}

std::vector<std::uint32_t> ChooseColors(const Histogram& histogram, std::size_t limit)
{
    const Entries entries = EntriesOf(histogram);
    if (entries.empty() || limit == 0)
        return {};
    std::vector<Group> groups{GroupOf(entries)};
    while (groups.size() < std::min(limit, entries.size()))
        SplitWidest(groups);
    std::vector<std::array<double, 3>> middles;
    for (const Group& group : groups)
        middles.push_back(group.mean);
    for (int round = 0; round < Refinements; ++round)
        Refine(middles, entries);
    std::vector<std::uint32_t> colors;
    for (const std::array<double, 3>& middle : middles)
        colors.push_back(ColorOf(middle));
    std::sort(colors.begin(), colors.end());
    colors.erase(std::unique(colors.begin(), colors.end()), colors.end());
    return colors;
}

std::size_t CNearest::IndexOf(std::uint32_t color)
{
    const auto [place, isNew] = m_known.try_emplace(color, 0);
    if (isNew) {
        const std::array<double, 3> parts = PartsOf(color);
        for (std::size_t i = 1; i < m_colors.size(); ++i)
            if (Distance(PartsOf(m_colors[i]), parts) < Distance(PartsOf(m_colors[place->second]), parts))
                place->second = i;
    }
    return place->second;
}

}
