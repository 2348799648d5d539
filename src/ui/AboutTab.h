#pragma once
#include <cstdint>

// The pictures and links of the About tab: each opens its page on the web. Failures: reported as Parlune, under the
// procedure's own name.
namespace aboutTab {

void imgParlune_Click();
void imgAgentRing_Click();
// Shows the link as visited, then opens page 0 (scripting tool), 1 (ring of pages) or 2 (product).
void lblURL_Click(std::int32_t index);

}
