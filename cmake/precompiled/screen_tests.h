#pragma once

// What the tests of the parts with windows read again and again, see core.h.

#include "cmake/precompiled/widgets.h"

// not QTest itself: what is in it depends on the parts of Qt that a target links
#include <QCborMap>
#include <QTemporaryDir>
#include <QTestEventList>
#include <QUrl>
#include <QUuid>
#include <gtest/gtest.h>
