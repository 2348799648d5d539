#include "settings/bOptionsControls.h"
#include "settings/bOptions.h"

namespace settings {
namespace {

std::string Shown(const ui::CCheckBox& box) { return std::to_string(box.Value()); }
std::string Shown(const ui::CTextBox& box) { return box.Text(); }
std::string Shown(const ui::CComboBox& list) { return list.Text(); }

// A box is loaded as a truth value even while it shows something else, such as the third state of some boxes.
std::string Default(const ui::CCheckBox& box) { return box.Ticked() ? "1" : "0"; }
std::string Default(const ui::CTextBox& box) { return box.Text(); }
std::string Default(const ui::CComboBox& list) { return list.Text(); }

void Show(ui::CCheckBox& box, const std::string& value) { box.SetValue(value == "1" ? 1 : 0); }
void Show(ui::CTextBox& box, const std::string& value) { box.SetText(value); }
void Show(ui::CComboBox& list, const std::string& value) { list.SetText(value); }

}

void LoadControl(frmParlune& window, const ControlOption& option)
{
    std::visit(
        [&](auto member) {
            auto& control = window.*member;
            const std::string defaultValue = option.defaultValue != nullptr ? option.defaultValue : Default(control);
            Show(control, bOptions::GetOption(option.key, defaultValue, IsTruthValue(option.control)));
        },
        option.control);
}

std::string ShownOption(const frmParlune& window, const OptionControl& control)
{
    return std::visit([&](auto member) { return Shown(window.*member); }, control);
}

bool IsTruthValue(const OptionControl& control) { return std::holds_alternative<ui::CCheckBox frmParlune::*>(control); }

}
