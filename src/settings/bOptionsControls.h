#pragma once
#include "ui/frmParlune.h"
#include <variant>

// Which control of the main window holds which option.
namespace settings {

using OptionControl = std::variant<ui::CCheckBox frmParlune::*, ui::CTextBox frmParlune::*, ui::CComboBox frmParlune::*>;

struct ControlOption {
    const char* key;
    OptionControl control;
    const char* defaultValue = nullptr;  // Null: what the control shows.
};

// Loads an option into its control; truth values that are neither "0" nor "1" count as missing.
void LoadControl(frmParlune& window, const ControlOption& option);
// The option that a control shows, as it is written.
std::string ShownOption(const frmParlune& window, const OptionControl& control);
// Whether a box holds the option: then it is a truth value.
bool IsTruthValue(const OptionControl& control);

}
