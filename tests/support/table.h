// SPDX-License-Identifier: GPL-3.0-or-later
// The tables of tests: columns are named once, and each row has a name that a failure tells.
#pragma once

#include <QTest>

/// Begins the table of a _data function by a type and a name for each column, and gives what adds a row:
///
///     const auto row = table<QString, int>("text", "number");
///     row("no digits", u"abc"_s, 0);
template<class... Types, class... Names>
auto table(Names... columns)
{
    (QTest::addColumn<Types>(columns), ...);
    return [](const char *name, const Types &...values) { (QTest::newRow(name) << ... << values); };
}
