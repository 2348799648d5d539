#pragma once
#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace platform {

// A run-time failure: a number that a person can look up, and its description. Whatever fails throws this; the guard of
// the running procedure reports it (common/zbErrorTrap.h).
class CFailure : public std::exception {
public:
    CFailure(std::int32_t number, std::string description) : m_number(number), m_description(std::move(description)) {}
    std::int32_t Number() const noexcept { return m_number; }
    const std::string& Description() const noexcept { return m_description; }
    const char* what() const noexcept override { return m_description.c_str(); }

private:
    std::int32_t m_number;
    std::string m_description;
};

// Thrown by IProgram::End where ending a process is not possible or not wanted (tests). No guard may swallow it.
class CProgramEnded {};

// The run-time failures, each with its number and text.
namespace failure {
inline CFailure InvalidCall() { return {5, "Invalid procedure call or argument"}; }
inline CFailure Overflow() { return {6, "Overflow"}; }
inline CFailure OutOfMemory() { return {7, "Out of memory"}; }
inline CFailure DivisionByZero() { return {11, "Division by zero"}; }
inline CFailure TypeMismatch() { return {13, "Type mismatch"}; }
inline CFailure BadFileName() { return {52, "Bad file name or number"}; }
inline CFailure FileNotFound() { return {53, "File not found"}; }
inline CFailure DeviceError() { return {57, "Device I/O error"}; }
inline CFailure FileExists() { return {58, "File already exists"}; }
inline CFailure DiskFull() { return {61, "Disk full"}; }
inline CFailure PastEndOfFile() { return {62, "Input past end of file"}; }
inline CFailure PermissionDenied() { return {70, "Permission denied"}; }
inline CFailure PathFileAccess() { return {75, "Path/File access error"}; }
inline CFailure PathNotFound() { return {76, "Path not found"}; }
inline CFailure ObjectNotSet() { return {91, "Object variable or With block variable not set"}; }
inline CFailure ComponentNotRegistered(const std::string& component)
{
    return {339, "Component '" + component +
                     "' or one of its dependencies not correctly registered: a file is missing or invalid"};
}
inline CFailure InvalidPropertyValue() { return {380, "Invalid property value"}; }
inline CFailure NoSuchMember() { return {438, "Object doesn't support this property or method"}; }
inline CFailure CannotCreateObject() { return {429, "ActiveX component can't create object"}; }
}

}
