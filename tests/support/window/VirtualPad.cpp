// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "support/window/VirtualPad.h"

#include <cmath>

namespace
{

Sint16 AxisValue(float deflection)
{
    return static_cast<Sint16>(std::lround(deflection * SDL_JOYSTICK_AXIS_MAX));
}

// The pad may outlive the game's use of gamepads, and its joystick must not go with that.
SDL_Joystick* PlugIn()
{
    SDL_InitSubSystem(SDL_INIT_JOYSTICK);
    return SDL_JoystickOpen(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER,
                                                      SDL_CONTROLLER_AXIS_MAX, SDL_CONTROLLER_BUTTON_MAX, 0));
}

} // namespace

VirtualPad::VirtualPad() : m_joystick(PlugIn(), SDL_JoystickClose)
{
}

VirtualPad::~VirtualPad()
{
    SDL_JoystickID const own = SDL_JoystickInstanceID(m_joystick.get());
    for (int device = SDL_NumJoysticks() - 1; device >= 0; --device)
    {
        if (SDL_JoystickGetDeviceInstanceID(device) == own)
        {
            SDL_JoystickDetachVirtual(device);
        }
    }
    m_joystick.reset();
    SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
}

void VirtualPad::hold(SDL_GameControllerButton button)
{
    SDL_JoystickSetVirtualButton(m_joystick.get(), button, SDL_PRESSED);
}

void VirtualPad::letGo(SDL_GameControllerButton button)
{
    SDL_JoystickSetVirtualButton(m_joystick.get(), button, SDL_RELEASED);
}

void VirtualPad::moveStick(float x, float y)
{
    SDL_JoystickSetVirtualAxis(m_joystick.get(), SDL_CONTROLLER_AXIS_LEFTX, AxisValue(x));
    SDL_JoystickSetVirtualAxis(m_joystick.get(), SDL_CONTROLLER_AXIS_LEFTY, AxisValue(-y));
}

bool VirtualPad::isOpen() const
{
    return SDL_GameControllerFromInstanceID(SDL_JoystickInstanceID(m_joystick.get())) != nullptr;
}
