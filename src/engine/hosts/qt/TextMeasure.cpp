#include "engine/hosts/qt/TextMeasure.h"
#include "engine/hosts/qt/ScreenPixels.h"
#include <algorithm>
#include <cmath>

namespace engine {
namespace {

constexpr double LargestFontPoints = 2160;
constexpr int LargestFontPixels = 4000;
constexpr std::size_t FontsKept = 16;

QString FromUtf8(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

// Whole pixels that hold a length, at least one.
std::int32_t UpToPixels(double length) { return std::max(1, static_cast<std::int32_t>(std::ceil(length - 1e-6))); }

}

QFont PixelFont(const Font& font)
{
    const double points = font.points > 0 ? std::min(font.points, LargestFontPoints) : 10;
    QFont made(FromUtf8(font.family));
    made.setStyleHint(QFont::SansSerif);
    made.setPixelSize(std::clamp(qRound(points * PixelsPerInch() / 72), 1, LargestFontPixels));
    made.setBold(font.bold);
    made.setItalic(font.italic);
    return made;
}

const QFontMetricsF& CTextMeasure::Metrics(const Font& font) const
{
    const auto known =
        std::find_if(m_metrics.begin(), m_metrics.end(), [&](const auto& each) { return each.first == font; });
    if (known != m_metrics.end())
        return known->second;
    if (m_metrics.size() == FontsKept)
        m_metrics.erase(m_metrics.begin());
    return m_metrics.emplace_back(font, QFontMetricsF(PixelFont(font))).second;
}

std::int32_t CTextMeasure::Width(const Font& font, std::string_view text) const
{
    return text.empty() ? 0 : UpToPixels(Metrics(font).horizontalAdvance(FromUtf8(text)));
}

std::int32_t CTextMeasure::AverageCharacterWidth(const Font& font) const
{
    return UpToPixels(Metrics(font).averageCharWidth());
}

std::int32_t CTextMeasure::LineHeight(const Font& font) const { return UpToPixels(Metrics(font).lineSpacing()); }

std::int32_t CTextMeasure::Ascent(const Font& font) const { return UpToPixels(Metrics(font).ascent()); }

}
