#include "driver/WebPages.h"
#include "driver/Waiting.h"
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace driver::browser {
namespace {

std::string ListFile()
{
    const char* const file = std::getenv("PARLUNE_OPENED");
    return file ? file : "";
}

}

void Forget()
{
    std::error_code ignored;
    std::filesystem::remove(ListFile(), ignored);
}

std::vector<std::string> Opened()
{
    std::ifstream stream(ListFile());
    std::vector<std::string> pages;
    for (std::string page; std::getline(stream, page);)
        pages.push_back(page);
    return pages;
}

std::string WaitForPage()
{
    std::vector<std::string> pages;
    Eventually([&] { return !(pages = Opened()).empty(); });
    return pages.empty() ? "" : pages.front();
}

}
