#pragma once

#include <gtest/gtest.h>

#include "base/error.h"

/// The number of the Error that an operation throws, 0 when it does not throw.
template <class Operation>
int errorOf(Operation&& operation) {
  try {
    operation();
  } catch (const base::Error& error) {
    EXPECT_FALSE(error.text().empty());
    return error.number();
  }
  return 0;
}
