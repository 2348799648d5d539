#include "ui/controls/CControl.h"
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

struct Form : testing::Test {
    ui::CForm form{"frmTest", "Test"};
    const std::function<void()> fail = [] { throw std::runtime_error("the procedure fails"); };
};

TEST_F(Form, Load_ItsProcedureThrows_IsNotLoadingAnyMore)
{
    form.onLoad = fail;

    EXPECT_THROW(form.Load(), std::runtime_error);
    EXPECT_FALSE(form.Loading());
}

TEST_F(Form, Unload_AfterAQuestionThatThrew_Asks)
{
    form.Load();
    int asked = 0;
    form.onQueryUnload = [&](ui::UnloadMode) {
        if (++asked == 1)
            fail();
        return true;
    };

    EXPECT_THROW(form.Unload(), std::runtime_error);
    EXPECT_TRUE(form.Loaded());
    EXPECT_TRUE(form.Unload());
    EXPECT_EQ(asked, 2);
    EXPECT_FALSE(form.Loaded());
}

TEST_F(Form, Unload_AfterAProcedureThatThrew_RunsItAgain)
{
    form.Load();
    form.onUnload = fail;
    EXPECT_THROW(form.Unload(), std::runtime_error);
    form.onUnload = nullptr;

    EXPECT_TRUE(form.Unload());
    EXPECT_FALSE(form.Loaded());
}

TEST_F(Form, Unload_FromItsOwnQuestion_AsksOnce)
{
    form.Load();
    int asked = 0;
    form.onQueryUnload = [&](ui::UnloadMode) {
        ++asked;
        return form.Unload();
    };

    EXPECT_TRUE(form.Unload());
    EXPECT_EQ(asked, 1);
}

}
