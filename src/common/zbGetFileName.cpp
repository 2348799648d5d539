#include "common/zbGetFileName.h"
#include "base/text/Case.h"
#include "base/text/Text.h"
#include "common/Version.h"
#include "common/zbErrorTrap.h"
#include "platform/FileDialogs.h"
#include "platform/MessageBoxes.h"
#include "platform/Platform.h"
#include <algorithm>
#include <optional>

namespace {

using platform::Current;
using platform::FileDialog;

constexpr char Module[] = "bGetFileName";
constexpr std::size_t FileLimit = 256;

std::optional<FileDialog::Mode> ModeOf(const std::string& mode)
{
    const std::string upper = text::Upper(mode);
    if (upper == "OPEN")
        return FileDialog::Mode::Open;
    if (upper == "SAVE")
        return FileDialog::Mode::Save;
    return std::nullopt;
}

void TellThatTheModeIsWrong()
{
    Current().messageBoxes.Show({"The GetFileName function requires OPEN or SAVE to be the first parameter.", version::Title,
                                 platform::BoxButtons::Ok, platform::BoxIcon::Exclamation});
}

std::string SystemsFilter(std::string filter)
{
    std::replace(filter.begin(), filter.end(), '|', '\0');
    const std::size_t first = filter.find_first_not_of('\0');
    return first == std::string::npos ? std::string() : filter.substr(first, filter.find_last_not_of('\0') - first + 1);
}

// The whole characters that fit into the dialog's buffer.
std::string FittingName(const std::string& name)
{
    std::string_view fitting = text::Left(name, FileLimit);
    for (std::size_t characters = FileLimit; fitting.size() > FileLimit; --characters)
        fitting = text::Left(fitting, characters);
    return std::string(fitting);
}

void SetChecks(FileDialog& dialog)
{
    const bool open = dialog.mode == FileDialog::Mode::Open;
    dialog.fileMustExist = open;
    dialog.pathMustExist = !open;
    dialog.confirmOverwrite = !open;
}

std::string UpToNul(const std::string& path) { return path.substr(0, path.find('\0')); }

}

std::string zbGetFileName::GetFileName(const std::string& mode, const std::string& filter, int filterIndex,
                                       const std::string& initialFolder, const std::string& initialFile,
                                       const std::string& defaultExtension, const std::string& title)
{
    const zbErrorTrap::CGuard guard(Module, "GetFileName");
    std::optional<FileDialog::Mode> dialogMode;
    FileDialog dialog;
    std::string path;

    guard([&] { dialogMode = ModeOf(mode); });
    if (!dialogMode) {
        guard(TellThatTheModeIsWrong);
        return "";
    }
    guard([&] {
        dialog = {*dialogMode, SystemsFilter(filter), filterIndex, initialFolder, FittingName(initialFile),
                  FileLimit,   defaultExtension,      title};
    });
    SetChecks(dialog);
    guard([&] { path = UpToNul(Current().fileDialogs.Ask(dialog)); });
    return path;
}
