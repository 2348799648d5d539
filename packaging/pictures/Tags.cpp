#include "Svg.h"
#include <cmath>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>

namespace svg {
namespace {

Tag ReadTag(const std::string& inside)
{
    static const std::regex attribute("([A-Za-z][-A-Za-z0-9:]*)\\s*=\\s*\"([^\"]*)\"");
    Tag tag;
    tag.name = inside.substr(0, inside.find_first_of(" \t\r\n/", 1));
    tag.closed = !inside.empty() && inside.back() == '/';
    for (std::sregex_iterator found(inside.begin(), inside.end(), attribute), end; found != end; ++found)
        tag.attributes[(*found)[1]] = (*found)[2];
    return tag;
}

Affine OneTransform(const std::string& name, const std::vector<double>& values)
{
    const auto value = [&](std::size_t index, double otherwise) {
        return index < values.size() ? values[index] : otherwise;
    };
    if (name == "translate")
        return {1, 0, 0, 1, value(0, 0), value(1, 0)};
    if (name == "scale")
        return {value(0, 1), 0, 0, value(1, value(0, 1)), 0, 0};
    if (name != "rotate")
        throw std::runtime_error("transform " + name + " is not known");
    const double angle = value(0, 0) * std::acos(-1.0) / 180, x = value(1, 0), y = value(2, 0);
    const Affine turn{std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0};
    return Affine{1, 0, 0, 1, x, y} * turn * Affine{1, 0, 0, 1, -x, -y};
}

}

Affine Affine::operator*(const Affine& i) const
{
    return {a * i.a + c * i.b, b * i.a + d * i.b,     a * i.c + c * i.d,
            b * i.c + d * i.d, a * i.e + c * i.f + e, b * i.e + d * i.f + f};
}

double Affine::Scale() const { return std::sqrt(std::abs(a * d - b * c)); }

std::string Tag::Get(const std::string& attribute, const std::string& otherwise) const
{
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? otherwise : found->second;
}

double Tag::Number(const std::string& attribute, double otherwise) const
{
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? otherwise : std::stod(found->second);
}

std::vector<Tag> ReadTags(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error("cannot be read");
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    text = std::regex_replace(text, std::regex("<!--[^]*?-->"), "");
    std::vector<Tag> tags;
    for (std::size_t at = text.find('<'); at != std::string::npos; at = text.find('<', at + 1)) {
        const std::string inside = text.substr(at + 1, text.find('>', at) - at - 1);
        if (inside[0] != '?')
            tags.push_back(ReadTag(inside));
    }
    return tags;
}

std::vector<double> Numbers(const std::string& text)
{
    static const std::regex number("[-+]?(\\d+\\.?\\d*|\\.\\d+)([eE][-+]?\\d+)?");
    std::vector<double> values;
    for (std::sregex_iterator found(text.begin(), text.end(), number), end; found != end; ++found)
        values.push_back(std::stod(found->str()));
    return values;
}

Affine ReadTransform(const std::string& text)
{
    static const std::regex one("([a-z]+)\\s*\\(([^)]*)\\)");
    Affine whole;
    for (std::sregex_iterator found(text.begin(), text.end(), one), end; found != end; ++found)
        whole = whole * OneTransform((*found)[1], Numbers((*found)[2]));
    return whole;
}

}
