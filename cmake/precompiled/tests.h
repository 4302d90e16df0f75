#pragma once

// What the tests of the parts without windows read again and again, see core.h.

#include "cmake/precompiled/core.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
