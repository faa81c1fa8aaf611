// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "storm/RandomEvents.h"

#include <array>
#include <cstring>

namespace
{

// So rare that most runs come to every menu before.
constexpr int kEventsPerEnd = 8000;

constexpr std::array kModifiers = {KMOD_NONE,  KMOD_NONE, KMOD_NONE, KMOD_LSHIFT, KMOD_CAPS,
                                   KMOD_LCTRL, KMOD_RALT, KMOD_LGUI, KMOD_NUM};

// Keys that the game knows: half of all key events are theirs.
constexpr std::array kKnownKeys = {SDLK_w,  SDLK_s,    SDLK_ESCAPE, SDLK_d,     SDLK_RETURN, SDLK_UP,
                                   SDLK_F5, SDLK_KP_4, SDLK_TAB,    SDLK_SPACE, SDLK_DELETE, SDLK_LSHIFT};

// Well formed, empty, cut off, not UTF-8 at all, and too long for a key.
constexpr std::array kTexts = {"w",  "\xC3\xA4", "\xF0\x9F\x9A\x80",
                               "",   "\xC3",     "\xFF\xFE",
                               "ab", "\x01",     "0123456789012345678901234567890"};

constexpr std::array kForeignTypes = {
    SDL_TEXTEDITING,   SDL_KEYMAPCHANGED,         SDL_JOYAXISMOTION,
    SDL_JOYBUTTONDOWN, SDL_CONTROLLERDEVICEADDED, SDL_FINGERDOWN,
    SDL_FINGERMOTION,  SDL_CLIPBOARDUPDATE,       SDL_AUDIODEVICEADDED,
    SDL_SENSORUPDATE,  SDL_RENDER_TARGETS_RESET,  SDL_APP_LOWMEMORY,
    SDL_DISPLAYEVENT,  SDL_MOUSEBUTTONDOWN,       SDL_USEREVENT,
};

} // namespace

void RandomEvents::PushNext(SDL_Window* window)
{
    struct Share
    {
        int perMille;
        void (RandomEvents::*push)();
    };
    static constexpr Share kShares[] = {
        {230, &RandomEvents::PushKeyDown},     {100, &RandomEvents::PushKeyUp},
        {200, &RandomEvents::PushRelease},     {80, &RandomEvents::PushWheel},
        {20, &RandomEvents::PushFocusChange},  {40, &RandomEvents::PushForeign},
        {1, &RandomEvents::PushFullScreenKey}, {2, &RandomEvents::ResizeWindow},
        {327, &RandomEvents::PushMove},
    };
    m_window = window;
    if (OneIn(kEventsPerEnd))
    {
        PushEnd();
        return;
    }
    int rest = Below(1000);
    auto const* share = std::begin(kShares);
    while (rest >= share->perMille)
    {
        rest -= share->perMille;
        ++share;
    }
    (this->*share->push)();
}

int RandomEvents::Below(int count)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(count));
}

int RandomEvents::Between(int least, int most)
{
    return least + Below(most - least + 1);
}

// For the window as a rule; sometimes for no window, or for one that does not exist.
SDL_Event RandomEvents::Blank(unsigned type)
{
    SDL_Event event;
    std::memset(&event, 0, sizeof event);
    event.type = type;
    event.window.windowID = SDL_GetWindowID(m_window); // lies at the same place in every event of a window
    if (OneIn(50))
    {
        event.window.windowID = OneIn(2) ? 0 : static_cast<unsigned>(Between(1, 1000));
    }
    return event;
}

void RandomEvents::PushKey(bool isDown)
{
    SDL_Event event = Blank(isDown ? SDL_KEYDOWN : SDL_KEYUP);
    bool const isKnown = OneIn(2);
    event.key.keysym.scancode = static_cast<SDL_Scancode>(Below(SDL_NUM_SCANCODES));
    event.key.keysym.sym = isKnown ? OneOf(kKnownKeys) : SDL_GetKeyFromScancode(event.key.keysym.scancode);
    if (OneIn(20))
    {
        event.key.keysym.sym = static_cast<SDL_Keycode>(m_random());
    }
    event.key.keysym.mod = static_cast<Uint16>(OneOf(kModifiers));
    event.key.repeat = OneIn(4) ? 1 : 0;
    if (event.key.keysym.sym == SDLK_q) // Ctrl+Q comes from PushEnd() alone
    {
        event.key.keysym.mod = KMOD_NONE;
    }
    SDL_PushEvent(&event);
    if (isDown && OneIn(2))
    {
        PushText();
    }
}

void RandomEvents::PushText()
{
    SDL_Event event = Blank(SDL_TEXTINPUT);
    char const* const text = OneOf(kTexts);
    std::strncpy(event.text.text, text, sizeof event.text.text - 1);
    SDL_PushEvent(&event);
}

void RandomEvents::PushCommand(SDL_Keycode key, int modifiers)
{
    SDL_Event event = Blank(SDL_KEYDOWN);
    event.key.keysym.sym = key;
    event.key.keysym.scancode = SDL_GetScancodeFromKey(key);
    event.key.keysym.mod = static_cast<Uint16>(modifiers);
    SDL_PushEvent(&event);
}

void RandomEvents::PushFullScreenKey()
{
    OneIn(2) ? PushCommand(SDLK_F11, KMOD_NONE) : PushCommand(SDLK_RETURN, KMOD_LALT);
}

// Half of them where menus have their items, so that items are clicked often; some far outside the window.
SDL_Point RandomEvents::Place()
{
    int width = 1;
    int height = 1;
    SDL_GetWindowSize(m_window, &width, &height);
    if (OneIn(2))
    {
        return {width / 2 + Between(0, 60), height / 2 + 40 * Below(8) + Between(0, 20)};
    }
    if (OneIn(20))
    {
        return {static_cast<int>(m_random()), static_cast<int>(m_random())};
    }
    return {Between(-10, width + 10), Between(-10, height + 10)};
}

void RandomEvents::PushMove()
{
    SDL_Event event = Blank(SDL_MOUSEMOTION);
    m_pointer = Place();
    event.motion.x = m_pointer.x;
    event.motion.y = m_pointer.y;
    event.motion.xrel = Between(-100, 100);
    event.motion.yrel = Between(-100, 100);
    event.motion.state = OneIn(10) ? static_cast<unsigned>(Below(32)) : 0;
    SDL_PushEvent(&event);
}

void RandomEvents::PushRelease()
{
    SDL_Event event = Blank(SDL_MOUSEBUTTONUP);
    SDL_Point const place = OneIn(4) ? Place() : m_pointer;
    event.button.button = OneIn(8) ? static_cast<Uint8>(Below(256)) : static_cast<Uint8>(SDL_BUTTON_LEFT);
    event.button.x = place.x;
    event.button.y = place.y;
    SDL_PushEvent(&event);
}

void RandomEvents::PushWheel()
{
    SDL_Event event = Blank(SDL_MOUSEWHEEL);
    event.wheel.x = Between(-2, 2);
    event.wheel.y = OneIn(50) ? static_cast<int>(m_random()) : Between(-2, 2);
    event.wheel.direction = OneIn(2) ? SDL_MOUSEWHEEL_FLIPPED : SDL_MOUSEWHEEL_NORMAL;
    SDL_PushEvent(&event);
}

void RandomEvents::PushFocusChange()
{
    SDL_Event event = Blank(SDL_WINDOWEVENT);
    do
    {
        event.window.event = static_cast<Uint8>(Below(SDL_WINDOWEVENT_DISPLAY_CHANGED + 2));
    } while (event.window.event == SDL_WINDOWEVENT_CLOSE); // which comes from PushEnd() alone
    event.window.data1 = Between(-1, 2000);
    event.window.data2 = Between(-1, 2000);
    SDL_PushEvent(&event);
    if (OneIn(20))
    {
        SDL_SetWindowInputFocus(m_window);
    }
}

void RandomEvents::PushForeign()
{
    SDL_Event event = Blank(OneOf(kForeignTypes));
    SDL_PushEvent(&event);
}

void RandomEvents::PushEnd()
{
    SDL_Event event = Blank(SDL_QUIT);
    switch (Below(3))
    {
    case 0:
        PushCommand(SDLK_q, KMOD_LCTRL);
        return;
    case 1:
        event.type = SDL_WINDOWEVENT;
        event.window.event = SDL_WINDOWEVENT_CLOSE;
        break;
    default:
        break;
    }
    SDL_PushEvent(&event);
}

void RandomEvents::ResizeWindow()
{
    bool const isTiny = OneIn(10);
    SDL_SetWindowSize(m_window, isTiny ? 1 : Between(1, 1280), isTiny ? 1 : Between(1, 720));
}
