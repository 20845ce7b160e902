// Plays a script in a form's window; fails the calling test if no window appears.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "Driver.h"

namespace corvane {

inline void PlayWhole(Form& form, const std::function<void()>& script) {
  bool played = false;
  const int exitStatus = Play(form, [&] {
    script();
    played = true;
  });
  EXPECT_EQ(exitStatus, 0);
  EXPECT_TRUE(played);
}

}  // namespace corvane
