// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A view of the tests' own in the application's window, and the fixture that runs an application with it.
// It puts its input into SDL's queue, as a desktop does.
#pragma once

#include "platform/base/RunLoop.h"
#include "platform/window/TestView.h"

#include <gtest/gtest.h>
#include <SDL.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class ScriptedView;
using Step = std::function<void(ScriptedView&)>;

// Takes one step at each pass of the run loop: what a step puts into the queue is handled before the next
// step. After the last step it closes its window.
class ScriptedView : public TestView
{
public:
    // record: gets what the view was told. It outlives the view.
    ScriptedView(std::vector<Step> script, TestView* record);
    ~ScriptedView() override;

    void awakeFromNib() override;

    // Into the queue, for this view's window.
    void push(SDL_Event event) const;

    // text: what SDL sends along with the key.
    void pressKey(SDL_Keycode code, int modifiers = KMOD_NONE, char const* text = "",
                  bool isRepeat = false) const;

    // The window's close button.
    void close() const;

    // The view does not close its window after the last step.
    void stay() { m_closesAtEnd = false; }

private:
    void takeStep();

    std::vector<Step> m_script;
    TestView* m_record;
    std::shared_ptr<platform::Timer> m_timer;
    std::size_t m_next = 0;
    bool m_closesAtEnd = true;
};

// Restores the handlers of signals after each test.
class ApplicationTest : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    // The exit status.
    int run(std::vector<Step> const& script);

    TestView record; // what the view was told in the last run

private:
    std::vector<std::pair<int, void (*)(int)>> m_handlers;
};
