// The stable headers of the test binaries.
#pragma once

#include "pch.h"

#include <QtXml/QDomDocument>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
