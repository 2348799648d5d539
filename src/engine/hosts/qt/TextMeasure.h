#pragma once
#include "engine/Host.h"
#include <QFont>
#include <QFontMetricsF>
#include <utility>
#include <vector>

namespace engine {

// A font of the engine in device pixels, for measuring and for painting alike.
QFont PixelFont(const Font& font);

// Measures with the fonts that the balloon paints with. Keeps the fonts used last, because looking a font up is slow.
class CTextMeasure final : public ITextMeasure {
public:
    std::int32_t Width(const Font& font, std::string_view text) const override;
    std::int32_t AverageCharacterWidth(const Font& font) const override;
    std::int32_t LineHeight(const Font& font) const override;
    std::int32_t Ascent(const Font& font) const override;

private:
    const QFontMetricsF& Metrics(const Font& font) const;
    mutable std::vector<std::pair<Font, QFontMetricsF>> m_metrics;
};

}
