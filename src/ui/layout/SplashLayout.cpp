#include "ui/layout/FormLayout.h"

namespace ui::layout {
namespace {

constexpr Row SplashRows[] = {
    Row{Kind::Picture, "imgAbout", {}, {0, 0, 240, 102}}.Spoken("Parlune").Shows("splash"),
    Row{Kind::Label, "lblVersion", {}, {7, 104, 226, 12}},
};

constexpr FormLayout Splash{240, 118, {SplashRows, sizeof SplashRows / sizeof *SplashRows}};

}

const FormLayout& SplashLayout() { return Splash; }

}
