#include "Svg.h"
#include <cstdio>
#include <exception>
#include <fstream>

// make_pictures OUTPUT.cpp PICTURE.svg...: writes the pictures as tables of shapes.
namespace {

void WritePaint(std::ostream& out, const ui::pictures::Paint& paint)
{
    out << "{0x" << std::hex << paint.first << ", 0x" << paint.last << std::dec << ", " << (paint.blended ? "true" : "false")
        << ", " << (paint.ink ? "true" : "false") << "}";
}

template <class Values, class Write>
void WriteArray(std::ostream& out, const std::string& head, const Values& values, Write write)
{
    out << "constexpr " << head << "[] = {";
    for (const auto& value : values) {
        write(value);
        out << ", ";
    }
    out << "};\n";
}

void WritePicture(std::ostream& out, const std::string& id, const svg::Picture& picture)
{
    for (std::size_t at = 0; at < picture.shapes.size(); ++at) {
        const std::string shape = id + "_" + std::to_string(at);
        WriteArray(out, "Verb " + shape + "_verbs", picture.shapes[at].verbs,
                   [&](ui::pictures::Verb verb) { out << "Verb(" << static_cast<int>(verb) << ")"; });
        WriteArray(out, "float " + shape + "_points", picture.shapes[at].points,
                   [&](float value) { out << "float(" << value << ")"; });
    }
    out << "constexpr Shape " << id << "[] = {\n";
    for (std::size_t at = 0; at < picture.shapes.size(); ++at) {
        const std::string shape = id + "_" + std::to_string(at);
        out << "    {" << shape << "_verbs, " << picture.shapes[at].verbs.size() << ", " << shape << "_points, ";
        WritePaint(out, picture.shapes[at].fill);
        out << ", ";
        WritePaint(out, picture.shapes[at].stroke);
        out << ", float(" << picture.shapes[at].strokeWidth << ")},\n";
    }
    out << "};\n";
}

void WriteAll(std::ostream& out, const std::vector<std::filesystem::path>& files)
{
    out << "#include \"ui/pictures/Picture.h\"\n\nnamespace ui::pictures {\nnamespace {\n";
    std::string list;
    for (std::size_t at = 0; at < files.size(); ++at) {
        const std::string id = "picture" + std::to_string(at);
        const svg::Picture picture = svg::Read(files[at]);
        WritePicture(out, id, picture);
        list += "    {\"" + files[at].stem().string() + "\", float(" + std::to_string(picture.width) + "), float(" +
                std::to_string(picture.height) + "), " + id + ", " + std::to_string(picture.shapes.size()) + "},\n";
    }
    out << "constexpr Picture All[] = {\n"
        << list << "};\n}\n\n"
        << "const Picture* Find(std::string_view name)\n{\n    for (const Picture& picture : All)\n"
        << "        if (picture.name == name)\n            return &picture;\n    return nullptr;\n}\n\n}\n";
}

}

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fputs("Usage: make_pictures OUTPUT.cpp PICTURE.svg...\n", stderr);
        return 1;
    }
    try {
        std::ofstream out(argv[1]);
        WriteAll(out, {argv + 2, argv + argc});
        return out.flush() ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
