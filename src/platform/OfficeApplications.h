#pragma once
#include <cstdint>
#include <memory>
#include <string>

namespace platform {

// A running word processor. Every call may throw CFailure.
class IWord {
public:
    virtual ~IWord() = default;
    virtual std::string DocumentText() = 0;  // The whole text of the active document.
    virtual std::string SelectionText() = 0;
};

// The selected cells of a running spreadsheet; columns and rows count from 1. Every call may throw CFailure.
class ICellRange {
public:
    virtual ~ICellRange() = default;
    virtual std::int32_t Columns() = 0;
    virtual std::int32_t Rows() = 0;
    virtual std::string CellText(std::int32_t row, std::int32_t column) = 0;  // "" for an empty cell.
};

class IExcel {
public:
    virtual ~IExcel() = default;
    virtual std::unique_ptr<ICellRange> Selection() = 0;  // Null when the selection is no object.
};

// Attaches to applications that already run; never starts one.
class IOfficeApplications {
public:
    virtual ~IOfficeApplications() = default;
    virtual std::unique_ptr<IWord> RunningWord() = 0;  // Null, or a CFailure, when none runs.
    virtual std::unique_ptr<IExcel> RunningExcel() = 0;
};

}
