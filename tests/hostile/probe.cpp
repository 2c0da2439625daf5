// SPDX-License-Identifier: GPL-2.0-or-later
// A library that a module would have loaded: it does nothing, and is not to be loaded all the same.
extern "C" int Probe() { return 1; }
