// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/input/Gamepads.h"

#include "platform/base/Log.h"

#include <algorithm>
#include <cmath>

namespace platform
{

namespace
{

// Share of the full deflection. Sticks that are let go come to rest that near to their middle.
constexpr float kRest = 0.1F;

float Deflection(SDL_GameController* pad, SDL_GameControllerAxis axis)
{
    return static_cast<float>(SDL_GameControllerGetAxis(pad, axis)) / SDL_JOYSTICK_AXIS_MAX;
}

// 0 at rest, growing evenly from there to the full deflection.
Point WithoutRest(Point stick)
{
    float const length = std::hypot(stick.x, stick.y);
    float const scale = length > kRest ? (length - kRest) / (1.0F - kRest) / length : 0.0F;
    return {std::clamp(scale * stick.x, -1.0F, 1.0F), std::clamp(scale * stick.y, -1.0F, 1.0F)};
}

Event MouseEvent(EventType type, Point place)
{
    Event event;
    event.type = type;
    event.locationInWindow = place;
    return event;
}

} // namespace

// SDL would ask the pads whenever it is asked for events, and each millisecond where it waits for one.
Gamepads::Gamepads(Responder& view) : m_view(view)
{
    SDL_SetHint(SDL_HINT_AUTO_UPDATE_JOYSTICKS, "0");
    if (SDL_InitSubSystem(SDL_INIT_GAMECONTROLLER) != 0)
    {
        LogFormat("Gamepads cannot be used: %s", SDL_GetError());
    }
}

Gamepads::~Gamepads()
{
    m_pads.clear();
    SDL_QuitSubSystem(SDL_INIT_GAMECONTROLLER);
}

void Gamepads::poll()
{
    SDL_GameControllerUpdate();
}

void Gamepads::dispatch(SDL_Event const& event)
{
    switch (event.type)
    {
    case SDL_CONTROLLERDEVICEADDED:
        return open(event.cdevice.which);
    case SDL_CONTROLLERDEVICEREMOVED:
        return close(event.cdevice.which);
    case SDL_CONTROLLERAXISMOTION:
        return moveStick(event.caxis.which);
    case SDL_CONTROLLERBUTTONDOWN:
        return press(event.cbutton.button);
    default:
        return;
    }
}

void Gamepads::open(int device)
{
    Pad pad(SDL_GameControllerOpen(device));
    if (pad)
    {
        m_pads[SDL_JoystickInstanceID(SDL_GameControllerGetJoystick(pad.get()))] = std::move(pad);
    }
}

void Gamepads::close(SDL_JoystickID pad)
{
    if (m_pads.erase(pad) != 0)
    {
        m_view.playerDidLeave();
    }
}

// A stick at rest trembles: it must not take the pointer away from the item where the D-pad put it.
void Gamepads::moveStick(SDL_JoystickID pad)
{
    SDL_GameController* const moved = SDL_GameControllerFromInstanceID(pad);
    Point const stick = WithoutRest(
        {Deflection(moved, SDL_CONTROLLER_AXIS_LEFTX), -Deflection(moved, SDL_CONTROLLER_AXIS_LEFTY)});
    if (stick != m_stick)
    {
        m_stick = stick;
        steer();
    }
}

void Gamepads::press(Uint8 button)
{
    switch (button)
    {
    case SDL_CONTROLLER_BUTTON_RIGHTSHOULDER:
        return pressKey(Control::ThrottleUp);
    case SDL_CONTROLLER_BUTTON_LEFTSHOULDER:
        return pressKey(Control::ThrottleDown);
    case SDL_CONTROLLER_BUTTON_DPAD_UP:
        return step(-1, Control::ThrottleUp);
    case SDL_CONTROLLER_BUTTON_DPAD_DOWN:
        return step(1, Control::ThrottleDown);
    case SDL_CONTROLLER_BUTTON_START:
        pressKey(Control::Pause);
        return steerRace();
    case SDL_CONTROLLER_BUTTON_A:
        click();
        return steerRace();
    default:
        return;
    }
}

void Gamepads::pressKey(Control control)
{
    Event key;
    key.charactersIgnoringModifiers = m_view.keyFor(control);
    if (!key.charactersIgnoringModifiers.empty())
    {
        m_view.keyDown(key);
    }
}

void Gamepads::step(int items, Control inRace)
{
    if (auto const place = m_view.clickPlace(items))
    {
        m_view.mouseMoved(MouseEvent(EventType::MouseMoved, *place));
    }
    else
    {
        pressKey(inRace);
    }
}

void Gamepads::click()
{
    if (auto const place = m_view.clickPlace(0))
    {
        m_view.mouseUp(MouseEvent(EventType::LeftMouseUp, *place));
    }
}

void Gamepads::steer()
{
    Size const size = m_view.frame().size;
    Point const place{(1.0F + m_stick.x) * size.width / 2.0F, (1.0F + m_stick.y) * size.height / 2.0F};
    m_view.mouseMoved(MouseEvent(EventType::MouseMoved, place));
}

// The stick may have moved since the race that goes on now was steered last.
void Gamepads::steerRace()
{
    if (!m_view.keyFor(Control::ThrottleUp).empty())
    {
        steer();
    }
}

} // namespace platform
