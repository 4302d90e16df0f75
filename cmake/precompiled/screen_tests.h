#pragma once

// What the tests of the parts with windows read again and again, see core.h.

#include "cmake/precompiled/widgets.h"

#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
