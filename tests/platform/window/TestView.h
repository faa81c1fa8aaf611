// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
//
// A view that records the messages it gets.
#pragma once

#include "support/window/PassiveView.h"

#include <string>
#include <vector>

class TestView : public PassiveView
{
public:
    void awakeFromNib() override { told.emplace_back("awakeFromNib"); }
    void reshape() override { shapes.push_back(frame().size); }
    void toggleFullScreen() override { told.emplace_back("toggleFullScreen"); }
    void playerDidLeave() override { told.emplace_back("playerDidLeave"); }

    bool wantsKey(platform::Event const& key) override { return key.charactersIgnoringModifiers == wanted; }

    bool needsEvenFrames() override { return isBusy; }

    bool acceptsFirstResponder() override { return accepts; }
    bool becomeFirstResponder() override
    {
        told.emplace_back("become");
        return true;
    }
    bool resignFirstResponder() override
    {
        told.emplace_back("resign");
        return resigns;
    }

    void keyDown(platform::Event const& event) override { note("keyDown", event); }
    void mouseMoved(platform::Event const& event) override { note("mouseMoved", event); }
    void mouseUp(platform::Event const& event) override { note("mouseUp", event); }
    void scrollWheel(platform::Event const& event) override { note("scrollWheel", event); }

    bool accepts = true;
    bool resigns = true;
    bool isBusy = false;
    std::u16string wanted; // the characters of a key that is no command here
    std::vector<std::string> told;
    std::vector<platform::Size> shapes; // one for each reshape
    std::vector<platform::Event> events;

private:
    void note(char const* what, platform::Event const& event)
    {
        told.emplace_back(what);
        events.push_back(event);
    }
};
