#pragma once
#include <string>
#include <vector>

// The pages that were given to the web browser, which the runner of the tests has put there: it writes them down.
namespace driver::browser {

void Forget();
std::vector<std::string> Opened();
std::string WaitForPage();  // The first; "" when none comes.

}
