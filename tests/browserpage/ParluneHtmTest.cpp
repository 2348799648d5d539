#include "browserpage/Script.h"
#include <gtest/gtest.h>

namespace {

TEST(ParluneHtm, Open_TextIsSelected_PutsItOnTheClipboard)
{
    EXPECT_EQ(ClipboardAfterPage("menuArguments = {document: {getSelection: function () { return 'A fox'; }}, frames: []};"),
              "Text:A fox");
}

TEST(ParluneHtm, Open_OldBrowserWithSelection_PutsItOnTheClipboard)
{
    EXPECT_EQ(ClipboardAfterPage("menuArguments = {document: {selection: {type: 'Text', createRange: function () {"
                                 "return {text: 'An old fox'}; }}}, frames: []};"),
              "Text:An old fox");
}

TEST(ParluneHtm, Open_PictureIsSelected_LeavesTheClipboardAlone)
{
    EXPECT_EQ(ClipboardAfterPage("menuArguments = {document: {selection: {type: 'Control'}}, frames: []};"), "(nothing)");
}

TEST(ParluneHtm, Open_NothingSelected_LeavesTheClipboardAlone)
{
    EXPECT_EQ(ClipboardAfterPage("menuArguments = {document: {getSelection: function () { return ''; }}, frames: []};"),
              "(nothing)");
}

TEST(ParluneHtm, Open_SelectionInAField_PutsItOnTheClipboard)
{
    EXPECT_EQ(
        ClipboardAfterPage("menuArguments = {document: {getSelection: function () { return ''; },"
                           "activeElement: {type: 'text', value: 'one two three', selectionStart: 4, selectionEnd: 7}},"
                           "frames: []};"),
        "Text:two");
}

TEST(ParluneHtm, Open_SelectionInAPasswordField_LeavesTheClipboardAlone)
{
    EXPECT_EQ(ClipboardAfterPage("menuArguments = {document: {getSelection: function () { return ''; },"
                                 "activeElement: {type: 'password', value: 'secret', selectionStart: 0, selectionEnd: 6}},"
                                 "frames: []};"),
              "(nothing)");
}

TEST(ParluneHtm, Open_SelectionInAFrame_PutsItOnTheClipboard)
{
    EXPECT_EQ(ClipboardAfterPage("function page(text) { return {document: {getSelection: function () { return text; }},"
                                 "frames: []}; }\n"
                                 "menuArguments = page(''); menuArguments.frames = [page(''), page('In a frame')];"),
              "Text:In a frame");
}

TEST(ParluneHtm, Open_FrameOfAnotherSiteRefuses_LooksIntoTheNext)
{
    EXPECT_EQ(ClipboardAfterPage("function page(text) { return {document: {getSelection: function () {"
                                 "if (text === 'no') throw new Error('refused'); return text; }}, frames: []}; }\n"
                                 "menuArguments = page(''); menuArguments.frames = [page('no'), page('Yes')];"),
              "Text:Yes");
}

TEST(ParluneHtm, Open_NotFromTheMenu_DoesNothing) { EXPECT_EQ(ClipboardAfterPage("menuArguments = null;"), "(nothing)"); }

}
