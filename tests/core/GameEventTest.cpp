// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "core/GameEvent.h"

#include "core/GameEventNSEvent.h"
#include "support/window/EventFactory.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

using events::KeyDown;
using events::KeyUp;
using events::LeftUp;
using events::MouseDragged;
using events::MouseMoved;
using events::RightUp;
using events::Wheel;
using events::Wrapped;
using platform::Event;
using platform::EventType;

std::vector<Event> EventsWithoutKeys()
{
    std::vector<Event> all;
    for (EventType const type : {EventType::MouseMoved, EventType::LeftMouseUp, EventType::RightMouseUp,
                                 EventType::LeftMouseDragged, EventType::ScrollWheel})
    {
        Event event = KeyDown(u"d"); // has a character, but is no key event
        event.type = type;
        all.push_back(event);
    }
    return all;
}

TEST(GameEventKeys, ADownIsADownAndAnUpIsAnUp)
{
    GameEvent const down = Wrapped(KeyDown(u"w"));
    GameEvent const up = Wrapped(KeyUp(u"w"));
    EXPECT_TRUE(down.IsKey());
    EXPECT_TRUE(down.IsKeyDown());
    EXPECT_FALSE(down.IsKeyUp());
    EXPECT_TRUE(up.IsKey());
    EXPECT_FALSE(up.IsKeyDown());
    EXPECT_TRUE(up.IsKeyUp());
}

TEST(GameEventKeys, AnUpMatchesItsCharacterLikeADown)
{
    EXPECT_TRUE(Wrapped(KeyDown(u"w")).IsKey(static_cast<unsigned short>(u'w')));
    EXPECT_TRUE(Wrapped(KeyUp(u"w")).IsKey(static_cast<unsigned short>(u'w')));
    EXPECT_TRUE(Wrapped(KeyUp(u"w")).IsKey('w'));
}

TEST(GameEventKeys, OtherEventsAreNoKeys)
{
    for (Event const& event : EventsWithoutKeys())
    {
        GameEvent const wrapped = Wrapped(event);
        EXPECT_FALSE(wrapped.IsKey());
        EXPECT_FALSE(wrapped.IsKeyDown());
        EXPECT_FALSE(wrapped.IsKeyUp());
        EXPECT_FALSE(wrapped.IsKey('d'));
        EXPECT_FALSE(wrapped.IsKey(static_cast<unsigned short>(u'd')));
    }
}

TEST(GameEventKeys, AByteMayStandAnywhereAmongTheCharacters)
{
    EXPECT_TRUE(Wrapped(KeyDown(u"dd")).IsKey('d'));
    EXPECT_TRUE(Wrapped(KeyDown(u"ad")).IsKey('d'));
    EXPECT_FALSE(Wrapped(KeyDown(u"ab")).IsKey('d'));
}

TEST(GameEventKeys, AUnitMustBeTheWholeString)
{
    auto const d = static_cast<unsigned short>(u'd');
    EXPECT_TRUE(Wrapped(KeyDown(u"d")).IsKey(d));
    EXPECT_FALSE(Wrapped(KeyDown(u"dd")).IsKey(d));
    EXPECT_FALSE(Wrapped(KeyDown(u"ad")).IsKey(d));
    EXPECT_FALSE(Wrapped(KeyDown(u"")).IsKey(d));
}

TEST(GameEventKeys, CaseMatters)
{
    EXPECT_FALSE(Wrapped(KeyDown(u"W")).IsKey(static_cast<unsigned short>(u'w')));
    EXPECT_FALSE(Wrapped(KeyDown(u"D")).IsKey('d'));
}

TEST(GameEventKeys, FunctionKeysMatchByTheirCode)
{
    GameEvent const up = Wrapped(KeyDown(u"\uF700"));
    EXPECT_TRUE(up.IsKey(static_cast<unsigned short>(0xF700)));
    EXPECT_EQ(up.GetUniChar(), 0xF700);
}

TEST(GameEventKeys, AWideCharacterDoesNotMatchByItsLowByte)
{
    EXPECT_FALSE(Wrapped(KeyDown(u"\u0164")).IsKey('d')); // 0x64 is 'd'
}

TEST(GameEventKeys, TheFirstUnitIsTheCharacter)
{
    EXPECT_EQ(Wrapped(KeyDown(u"ad")).GetUniChar(), u'a');
    EXPECT_EQ(Wrapped(KeyDown(u"")).GetUniChar(), 0);
}

class GameEventMouse : public testing::Test
{
protected:
    // What a question answers; it may leave them as they are.
    int m_dx = 1;
    int m_dy = 2;
    int m_x = 3;
    int m_y = 4;
    int m_button = 5;
};

TEST_F(GameEventMouse, MovesAndDragsTellPlaceAndMovement)
{
    for (EventType const type : {EventType::MouseMoved, EventType::LeftMouseDragged,
                                 EventType::RightMouseDragged, EventType::OtherMouseDragged})
    {
        GameEvent const event = Wrapped(MouseDragged(type, 30.0F, 40.0F, 5, -6));
        m_dx = m_dy = m_x = m_y = 0;
        EXPECT_TRUE(event.IsMouseMove(m_dx, m_dy, m_x, m_y));
        EXPECT_EQ(m_dx, 5);
        EXPECT_EQ(m_dy, -6);
        EXPECT_EQ(m_x, 30);
        EXPECT_EQ(m_y, 40);
    }
}

TEST_F(GameEventMouse, PlacesAreCutTowardsZero)
{
    ASSERT_TRUE(Wrapped(MouseMoved(12.9F, -3.9F)).IsMouseMove(m_dx, m_dy, m_x, m_y));
    EXPECT_EQ(m_x, 12);
    EXPECT_EQ(m_y, -3);
    ASSERT_TRUE(Wrapped(LeftUp(7.9F, -0.9F)).IsMouseUp(m_x, m_y));
    EXPECT_EQ(m_x, 7);
    EXPECT_EQ(m_y, 0);
}

TEST_F(GameEventMouse, AKeyIsNoMoveButClearsTheMovement)
{
    EXPECT_FALSE(Wrapped(KeyDown(u"w")).IsMouseMove(m_dx, m_dy, m_x, m_y));
    EXPECT_EQ(m_dx, 0);
    EXPECT_EQ(m_dy, 0);
    EXPECT_EQ(m_x, 3);
    EXPECT_EQ(m_y, 4);
}

TEST_F(GameEventMouse, BothButtonsRelease)
{
    EXPECT_TRUE(Wrapped(LeftUp(5.0F, 6.0F)).IsMouseUp(m_x, m_y));
    EXPECT_TRUE(Wrapped(RightUp(5.0F, 6.0F)).IsMouseUp(m_x, m_y));
    EXPECT_EQ(m_x, 5);
    EXPECT_EQ(m_y, 6);
    EXPECT_TRUE(GameEventNSEvent(LeftUp(5.0F, 6.0F)).IsMouseUp(m_x, m_y, m_button));
    EXPECT_EQ(m_button, 1);
    EXPECT_TRUE(GameEventNSEvent(RightUp(7.0F, 8.0F)).IsMouseUp(m_x, m_y, m_button));
    EXPECT_EQ(m_button, 2);
    EXPECT_EQ(m_x, 7);
    EXPECT_EQ(m_y, 8);
}

TEST_F(GameEventMouse, AKeyIsNoReleaseAndClearsThePlace)
{
    EXPECT_FALSE(Wrapped(KeyDown(u"w")).IsMouseUp(m_x, m_y));
    EXPECT_EQ(m_x, 0);
    EXPECT_EQ(m_y, 0);
    EXPECT_FALSE(GameEventNSEvent(MouseMoved(1.0F, 1.0F)).IsMouseUp(m_x, m_y, m_button));
    EXPECT_EQ(m_button, -1);
}

struct WheelCase
{
    float dx, dy, dz;
    bool up;
};

class GameEventWheel : public testing::TestWithParam<WheelCase>
{
};

TEST_P(GameEventWheel, AnyMovementAboveZeroIsUp)
{
    WheelCase const& wheel = GetParam();
    bool up = !wheel.up;
    EXPECT_TRUE(Wrapped(Wheel(wheel.dx, wheel.dy, wheel.dz)).IsScrollWheel(up));
    EXPECT_EQ(up, wheel.up);
}

INSTANTIATE_TEST_SUITE_P(Deltas, GameEventWheel,
                         testing::Values(WheelCase{1, 0, 0, true}, WheelCase{0, 1, 0, true},
                                         WheelCase{0, 0, 1, true}, WheelCase{-1, 1, 0, true},
                                         WheelCase{1, -1, 0, true}, WheelCase{-1, 0, 0, false},
                                         WheelCase{0, -1, 0, false}, WheelCase{0, 0, -1, false},
                                         WheelCase{0, 0, 0, false}));

TEST(GameEventNoWheel, AnotherEventLeavesTheAnswerUntouched)
{
    bool up = true;
    EXPECT_FALSE(Wrapped(KeyDown(u"w")).IsScrollWheel(up));
    EXPECT_TRUE(up);
    up = false;
    EXPECT_FALSE(Wrapped(MouseMoved(1.0F, 1.0F)).IsScrollWheel(up));
    EXPECT_FALSE(up);
}

TEST(GameEventTypes, TheKindsKeepThePlatformsNumbers)
{
    EXPECT_EQ(static_cast<int>(EventType::LeftMouseUp), 2);
    EXPECT_EQ(static_cast<int>(EventType::RightMouseUp), 4);
    EXPECT_EQ(static_cast<int>(EventType::MouseMoved), 5);
    EXPECT_EQ(static_cast<int>(EventType::LeftMouseDragged), 6);
    EXPECT_EQ(static_cast<int>(EventType::RightMouseDragged), 7);
    EXPECT_EQ(static_cast<int>(EventType::KeyDown), 10);
    EXPECT_EQ(static_cast<int>(EventType::KeyUp), 11);
    EXPECT_EQ(static_cast<int>(EventType::ScrollWheel), 22);
    EXPECT_EQ(static_cast<int>(EventType::OtherMouseDragged), 27);
}

} // namespace
