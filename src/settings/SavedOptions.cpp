#include "settings/SavedOptions.h"
#include "character/CharacterState.h"
#include "settings/OptionTables.h"
#include "settings/OptionsRecord.h"
#include "ui/EditorDocument.h"

namespace settings {
namespace {

bool CharacterLoaded() { return character::State().loaded; }

constexpr SavedOption Sizes[] = {
    {"CharWidth", [] { return std::to_string(Options().CharWidth); }, CharacterLoaded},
    {"CharHeight", [] { return std::to_string(Options().CharHeight); }, CharacterLoaded},
    {tables::CustomSize.key, tables::CustomSize.control, CharacterLoaded},
};

constexpr SavedOption Record[] = {
    {"FirstTime", [] { return std::string("0"); }},
    {"Character", [] { return Options().Character; }},
    {tables::UserName.key, tables::UserName.control},
    {"LastFolder", [] { return Options().LastFolder; }},
    {"LastCharFolder", [] { return Options().LastCharFolder; }},
};

// Deliberate: a greeting that the user cleared keeps its stored text.
template <std::size_t Index> constexpr SavedOption Greeting(const char* key)
{
    return {key, [] { return MainWindow().txtGreeting[Index].Text(); },
            [] { return !MainWindow().txtGreeting[Index].IsEmpty(); }};
}

template <std::size_t Index> constexpr SavedOption Animation(const char* key)
{
    return {key, [] { return MainWindow().cboAnim[Index].Text(); }};
}

constexpr SavedOption Greetings[] = {
    Greeting<0>("Greeting1"),           Animation<0>("GreetingAnimation1"), Greeting<1>("Greeting2"),
    Animation<1>("GreetingAnimation2"), Greeting<2>("Greeting3"),           Animation<2>("GreetingAnimation3"),
    Greeting<3>("Greeting4"),           Animation<3>("GreetingAnimation4"), Greeting<4>("Greeting5"),
    Animation<4>("GreetingAnimation5"),
};

constexpr SavedOption Last[] = {
    {"SayTime", &frmParlune::chkSayTime},
    {"SayTimeInterval", &frmParlune::cboSayTimeInterval},
    {"SayTimeText", &frmParlune::cboSayTime},
    {"SayTimeFormat", &frmParlune::cboSayTimeFormat},
    {"SayTimeShowIfHidden", &frmParlune::chkSayTimeShowIfHidden},
    {"PlayReadAnimation", &frmParlune::chkPlayReadAnimation},
    {tables::MonitorClipboard.key, tables::MonitorClipboard.control},
    {"FileName", [] { return ui::Document().currentFile; }},
};

using Visit = std::function<void(const SavedOption& option)>;

template <std::size_t N> void VisitAll(const SavedOption (&options)[N], const Visit& visit)
{
    for (const SavedOption& option : options)
        visit(option);
}

}

std::string SavedOption::Value() const
{
    const auto* control = std::get_if<OptionControl>(&source);
    return control != nullptr ? ShownOption(MainWindow(), *control) : std::get<1>(source)();
}

bool SavedOption::IsTruthValue() const
{
    const auto* control = std::get_if<OptionControl>(&source);
    return control != nullptr && settings::IsTruthValue(*control);
}

void VisitSavedOptions(const Visit& visit)
{
    VisitAll(Sizes, visit);
    VisitAll(Record, visit);
    VisitAll(Greetings, visit);
    for (const ControlOption& option : tables::Common)
        visit({option.key, option.control});
    VisitAll(Last, visit);
}

}
