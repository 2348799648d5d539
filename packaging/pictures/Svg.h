#pragma once
#include "ui/pictures/Picture.h"
#include <array>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

// Reads the part of SVG that our pictures are drawn with: g, path, rect, circle, ellipse, line and image, with presentation
// attributes, transforms and linear gradients of two stops. Anything else is an error, so that nothing is lost unseen.
namespace svg {

// x' = a x + c y + e, y' = b x + d y + f.
struct Affine {
    double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;
    Affine operator*(const Affine& inner) const;
    double Scale() const;  // How much lengths grow, on average.
};

struct Shape {
    std::vector<ui::pictures::Verb> verbs;
    std::vector<float> points;
    ui::pictures::Paint fill;
    ui::pictures::Paint stroke;
    float strokeWidth = 0;
};

struct Picture {
    double width = 0, height = 0;
    std::vector<Shape> shapes;
};

// Throws std::runtime_error with the file's name and what is wrong.
Picture Read(const std::filesystem::path& file);

// For Read's own parts.
struct Tag {
    std::string name;  // "/g" at the end of a group.
    std::map<std::string, std::string> attributes;
    bool closed = false;  // Ends at once.
    std::string Get(const std::string& attribute, const std::string& otherwise = "") const;
    double Number(const std::string& attribute, double otherwise = 0) const;
};
std::vector<Tag> ReadTags(const std::filesystem::path& file);
std::vector<double> Numbers(const std::string& text);
Affine ReadTransform(const std::string& text);
void AddPath(Shape& shape, const std::string& data);
// Adds the outline of a rect, circle, ellipse or line.
void AddBasic(Shape& shape, const Tag& tag);

}
