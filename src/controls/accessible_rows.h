// SPDX-License-Identifier: GPL-3.0-or-later
// What assistive tools see of a list: its rows by number, a million of them for nothing. A row can be chosen ("Toggle")
// and used as by a double click ("Press").
#pragma once

class ListBox;
class QAccessibleInterface;

QAccessibleInterface *makeListInterface(ListBox &list);
