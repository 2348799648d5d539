#include "platformlinux/TemporaryHome.h"

// Texts that are being written in place are kept in the user's state folder meanwhile: not in that of whoever runs the
// tests.
namespace faults {
namespace {
class CPrivateState final : public testing::Environment {
public:
    void SetUp() override { m_environment.Set("XDG_STATE_HOME", m_folder.Path()); }

private:
    CTemporaryFolder m_folder;
    CEnvironmentChange m_environment;
};

const testing::Environment* const privateState = testing::AddGlobalTestEnvironment(new CPrivateState);
}
}
