// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "core/Globals.h"

#include "platform/base/OpenGL.h"
#include "support/gl/RecordingGL.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

TEST(Globals, NoErrorIsZero)
{
    recording::reset();
    EXPECT_EQ(glReportError(), 0U);
    EXPECT_EQ(glDebugStr(), 0U);
}

TEST(Globals, TheErrorIsReturnedOnce)
{
    recording::reset();
    recording::setError(GL_INVALID_OPERATION);
    EXPECT_EQ(glReportError(), static_cast<unsigned>(GL_INVALID_OPERATION));
    EXPECT_EQ(glReportError(), 0U);
    recording::setError(GL_STACK_OVERFLOW);
    EXPECT_EQ(glDebugStr(), static_cast<unsigned>(GL_STACK_OVERFLOW));
    EXPECT_EQ(glDebugStr(), 0U);
}

TEST(Globals, ErrorsPrintNothing)
{
    recording::reset();
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    recording::setError(GL_INVALID_ENUM);
    glReportError();
    recording::setError(GL_INVALID_ENUM);
    glDebugStr();
    ReportError("something");
    ReportError(std::string(100000, 'x').c_str()); // and one longer than any buffer
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

} // namespace
