#pragma once
#include "platform/OfficeApplications.h"

namespace platform::windowsdesktop {

// The running word processor and spreadsheet, found in the table of running objects. None is ever started. Needs a
// CComApartment. Null when the application is not installed or does not run; other failures are thrown.
class CComOffice final : public IOfficeApplications {
public:
    std::unique_ptr<IWord> RunningWord() override;
    std::unique_ptr<IExcel> RunningExcel() override;
};

}
