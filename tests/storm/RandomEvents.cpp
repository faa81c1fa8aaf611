// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "storm/RandomEvents.h"

#include <cstring>

namespace
{

struct Share
{
    EventKind kind;
    int perMille; // the rest are moves
};

// Ends come so rarely that most runs see every menu.
constexpr std::array kShares = {
    Share{EventKind::Key, 230},      Share{EventKind::KeyLetGo, 100}, Share{EventKind::Release, 200},
    Share{EventKind::Wheel, 80},     Share{EventKind::Focus, 20},     Share{EventKind::Foreign, 40},
    Share{EventKind::FullScreen, 1}, Share{EventKind::Resize, 2},
};
constexpr int kEventsPerEnd = 8000;

constexpr std::array kModifiers = {KMOD_NONE,  KMOD_NONE, KMOD_NONE, KMOD_LSHIFT, KMOD_CAPS,
                                   KMOD_LCTRL, KMOD_RALT, KMOD_LGUI, KMOD_NUM};

// Those that the game knows, so that they come often enough.
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

EventKind RandomEvents::PushNext(SDL_Window* window)
{
    m_window = window;
    EventKind const kind = NextKind();
    switch (kind)
    {
    case EventKind::Key:
        PushKey(true);
        break;
    case EventKind::KeyLetGo:
        PushKey(false);
        break;
    case EventKind::Release:
        PushRelease();
        break;
    case EventKind::Wheel:
        PushWheel();
        break;
    case EventKind::Resize:
        ResizeWindow();
        break;
    case EventKind::Focus:
        PushFocusChange();
        break;
    case EventKind::FullScreen:
        OneIn(2) ? PushCommand(SDLK_F11, KMOD_NONE) : PushCommand(SDLK_RETURN, KMOD_LALT);
        break;
    case EventKind::Foreign:
        PushForeign();
        break;
    case EventKind::End:
        PushEnd();
        break;
    default:
        PushMove();
        break;
    }
    return kind;
}

int RandomEvents::Below(int count)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(count));
}

int RandomEvents::Between(int least, int most)
{
    return least + Below(most - least + 1);
}

EventKind RandomEvents::NextKind()
{
    if (OneIn(kEventsPerEnd))
    {
        return EventKind::End;
    }
    int rest = Below(1000);
    for (Share const& share : kShares)
    {
        rest -= share.perMille;
        if (rest < 0)
        {
            return share.kind;
        }
    }
    return EventKind::Move;
}

// For the window as a rule; sometimes for none, or for one that there is not.
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
    event.key.keysym.sym = isKnown ? kKnownKeys[static_cast<std::size_t>(Below(kKnownKeys.size()))]
                                   : SDL_GetKeyFromScancode(event.key.keysym.scancode);
    if (OneIn(20))
    {
        event.key.keysym.sym = static_cast<SDL_Keycode>(m_random());
    }
    event.key.keysym.mod =
        static_cast<Uint16>(kModifiers[static_cast<std::size_t>(Below(kModifiers.size()))]);
    event.key.repeat = OneIn(4) ? 1 : 0;
    bool const ends = event.key.keysym.sym == SDLK_q && (event.key.keysym.mod & KMOD_CTRL) != 0;
    if (ends)
    {
        event.key.keysym.mod = KMOD_NONE; // that is PushEnd()'s
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
    char const* const text = kTexts[static_cast<std::size_t>(Below(kTexts.size()))];
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

// Half of them on a menu's column, so that menus are worked and not only run past; some far outside.
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
    } while (event.window.event == SDL_WINDOWEVENT_CLOSE); // that is PushEnd()'s
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
    SDL_Event event = Blank(kForeignTypes[static_cast<std::size_t>(Below(kForeignTypes.size()))]);
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
