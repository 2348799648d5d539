#pragma once
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <optional>
#include <stdlib.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

// A folder of its own for a test, removed afterwards.
class CTemporaryFolder {
public:
    CTemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "parlune-test-XXXXXX").string();
        m_path = ::mkdtemp(name.data());
    }
    ~CTemporaryFolder() { std::filesystem::remove_all(m_path); }
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;

    std::string Path(const std::string& name = "") const { return name.empty() ? m_path : m_path + "/" + name; }
    void MakeFolder(const std::string& name) const { std::filesystem::create_directories(Path(name)); }
    void Write(const std::string& name, const std::string& bytes) const
    {
        std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }
    std::string Read(const std::string& name) const
    {
        std::ifstream file(Path(name), std::ios::binary);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(no file)";
    }
    bool Has(const std::string& name) const { return std::filesystem::exists(Path(name)); }
    bool HasEntries(const std::string& name) const
    {
        std::error_code ignored;
        return std::filesystem::directory_iterator(Path(name), ignored) != std::filesystem::directory_iterator();
    }

private:
    std::string m_path;
};

// Sets environment variables, or removes them, until the end of the test.
class CEnvironmentChange {
public:
    ~CEnvironmentChange()
    {
        for (const auto& [name, value] : m_former)
            Put(name, value);
    }
    void Set(const std::string& name, const std::optional<std::string>& value)
    {
        const char* former = ::getenv(name.c_str());
        m_former.try_emplace(name, former ? std::optional<std::string>(former) : std::nullopt);
        Put(name, value);
    }

private:
    static void Put(const std::string& name, const std::optional<std::string>& value)
    {
        if (value)
            ::setenv(name.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name.c_str());
    }
    std::map<std::string, std::optional<std::string>> m_former;
};

// Runs something in a process of its own; true when it returns true there.
template <class Body> bool SucceedsInChild(Body body)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(body() ? 0 : 1);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
