#include "Svg.h"
#include <cmath>
#include <stdexcept>

namespace svg {
namespace {

using ui::pictures::Paint;

// What a group hands down to what is in it.
struct Style {
    Affine map;
    std::string fill = "#000000";
    std::string stroke = "none";
    double strokeWidth = 1;
    double opacity = 1;
};

std::uint32_t Color(const std::string& text, double opacity)
{
    if (text.size() != 7 || text[0] != '#')
        throw std::runtime_error("colour " + text + " is none of the form #rrggbb");
    const auto rgb = static_cast<std::uint32_t>(std::stoul(text.substr(1), nullptr, 16));
    return static_cast<std::uint32_t>(std::lround(opacity * 255)) << 24 | rgb;
}

class CReader {
public:
    explicit CReader(const std::filesystem::path& file) : m_file(file), m_tags(ReadTags(file)) {}
    Picture Run()
    {
        m_styles.emplace_back();
        for (const Tag& tag : m_tags)
            Handle(tag);
        return std::move(m_picture);
    }

private:
    void Handle(const Tag& tag)
    {
        if (tag.name == "svg")
            Begin(tag);
        else if (tag.name == "g")
            m_styles.push_back(StyleOf(tag));
        else if (tag.name == "/g")
            m_styles.pop_back();
        else if (tag.name == "linearGradient")
            m_gradients[m_gradient = tag.Get("id")];
        else if (tag.name == "stop")
            m_gradients[m_gradient].push_back(Color(tag.Get("stop-color"), tag.Number("stop-opacity", 1)));
        else if (tag.name == "image")
            AddImage(tag);
        else if (tag.name[0] != '/' && tag.name != "defs" && tag.name != "title")
            AddShape(tag);
    }
    void Begin(const Tag& tag)
    {
        const std::vector<double> box = Numbers(tag.Get("viewBox"));
        if (box.size() != 4)
            throw std::runtime_error("the viewBox is missing");
        m_picture.width = box[2];
        m_picture.height = box[3];
        m_styles.back().map = {1, 0, 0, 1, -box[0], -box[1]};
    }
    Style StyleOf(const Tag& tag) const
    {
        Style style = m_styles.back();
        style.map = style.map * ReadTransform(tag.Get("transform"));
        style.fill = tag.Get("fill", style.fill);
        style.stroke = tag.Get("stroke", style.stroke);
        style.strokeWidth = tag.Number("stroke-width", style.strokeWidth);
        style.opacity *= tag.Number("opacity", 1);
        return style;
    }
    Paint PaintOf(const std::string& text, double opacity) const
    {
        if (text == "none")
            return {};
        if (text == "currentColor")
            return {Color("#000000", opacity), 0, false, true};
        if (text.rfind("url(#", 0) != 0)
            return {Color(text, opacity), 0, false, false};
        const auto found = m_gradients.find(text.substr(5, text.size() - 6));
        if (found == m_gradients.end() || found->second.size() != 2)
            throw std::runtime_error("gradient " + text + " has not two stops");
        return {found->second[0], found->second[1], true, false};
    }
    void AddShape(const Tag& tag)
    {
        const Style style = StyleOf(tag);
        Shape shape;
        if (tag.name == "path")
            AddPath(shape, tag.Get("d"));
        else
            AddBasic(shape, tag);
        shape.fill = PaintOf(style.fill, style.opacity * tag.Number("fill-opacity", 1));
        shape.stroke = PaintOf(style.stroke, style.opacity * tag.Number("stroke-opacity", 1));
        shape.strokeWidth = static_cast<float>(style.strokeWidth);
        Append(std::move(shape), style.map);
    }
    void Append(Shape shape, const Affine& map)
    {
        for (std::size_t at = 0; at < shape.points.size(); at += 2) {
            const double x = static_cast<double>(shape.points[at]), y = static_cast<double>(shape.points[at + 1]);
            shape.points[at] = static_cast<float>(map.a * x + map.c * y + map.e);
            shape.points[at + 1] = static_cast<float>(map.b * x + map.d * y + map.f);
        }
        shape.strokeWidth = static_cast<float>(static_cast<double>(shape.strokeWidth) * map.Scale());
        m_picture.shapes.push_back(std::move(shape));
    }
    void AddImage(const Tag& tag)
    {
        const Style style = StyleOf(tag);
        Picture inner = Read(m_file.parent_path() / tag.Get("href"));
        const double scale = tag.Number("width") / inner.width;
        const Affine map = style.map * Affine{scale, 0, 0, scale, tag.Number("x"), tag.Number("y")};
        for (Shape& shape : inner.shapes)
            Append(std::move(shape), map);
    }

    std::filesystem::path m_file;
    std::vector<Tag> m_tags;
    std::vector<Style> m_styles;
    std::map<std::string, std::vector<std::uint32_t>> m_gradients;
    std::string m_gradient;
    Picture m_picture;
};

}

Picture Read(const std::filesystem::path& file)
{
    try {
        return CReader(file).Run();
    } catch (const std::exception& failure) {
        throw std::runtime_error(file.filename().string() + ": " + failure.what());
    }
}

}
