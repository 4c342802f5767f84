// Shared expectations for the geometry tests.
#pragma once

#include "host/ge/AcGe.h"

#include <gtest/gtest.h>

constexpr double kPi = 3.14159265358979323846;

#define EXPECT_PT_NEAR(a, b, eps)            \
    do {                                     \
        const AcGePoint3d pa_ = (a);         \
        const AcGePoint3d pb_ = (b);         \
        EXPECT_NEAR(pa_.x, pb_.x, eps);      \
        EXPECT_NEAR(pa_.y, pb_.y, eps);      \
        EXPECT_NEAR(pa_.z, pb_.z, eps);      \
    } while (0)

#define EXPECT_VEC_NEAR(a, b, eps)           \
    do {                                     \
        const AcGeVector3d va_ = (a);        \
        const AcGeVector3d vb_ = (b);        \
        EXPECT_NEAR(va_.x, vb_.x, eps);      \
        EXPECT_NEAR(va_.y, vb_.y, eps);      \
        EXPECT_NEAR(va_.z, vb_.z, eps);      \
    } while (0)
