// SPDX-License-Identifier: GPL-3.0-or-later
// The functions of libmpg123 that the player uses, without their prefix.
#pragma once

#include "platform/loaded_library.h"

#include <memory>
#include <mpg123.h>

struct Mpg123 : LoadedLibrary {
    Mpg123() : LoadedLibrary(QStringLiteral("mpg123"), 0) {}
    Function<decltype(::mpg123_new)> create{*this, "mpg123_new"};
    Function<decltype(::mpg123_delete)> destroy{*this, "mpg123_delete"};
    Function<decltype(::mpg123_param)> param{*this, "mpg123_param"};
    Function<decltype(::mpg123_replace_reader_handle)> replace_reader_handle{*this, "mpg123_replace_reader_handle"};
    Function<decltype(::mpg123_open_handle)> open_handle{*this, "mpg123_open_handle"};
    Function<decltype(::mpg123_getformat)> getformat{*this, "mpg123_getformat"};
    Function<decltype(::mpg123_format_none)> format_none{*this, "mpg123_format_none"};
    Function<decltype(::mpg123_format)> format{*this, "mpg123_format"};
    Function<decltype(::mpg123_getstate)> getstate{*this, "mpg123_getstate"};
    Function<decltype(::mpg123_info)> info{*this, "mpg123_info"};
    Function<decltype(::mpg123_length)> length{*this, "mpg123_length"};
    Function<decltype(::mpg123_spf)> spf{*this, "mpg123_spf"};
    Function<decltype(::mpg123_read)> read{*this, "mpg123_read"};
    Function<decltype(::mpg123_seek)> seek{*this, "mpg123_seek"};
    Function<decltype(::mpg123_index)> index{*this, "mpg123_index"};
    Function<decltype(::mpg123_set_index)> set_index{*this, "mpg123_set_index"};
    Function<decltype(::mpg123_framebyframe_next)> framebyframe_next{*this, "mpg123_framebyframe_next"};
    Function<decltype(::mpg123_id3)> id3{*this, "mpg123_id3"};
};

inline const Mpg123 &mpg123()
{
    static const Mpg123 library;
    return library;
}

struct DestroyMpg123 {
    void operator()(mpg123_handle *handle) const { mpg123().destroy(handle); }
};
using Mpg123Handle = std::unique_ptr<mpg123_handle, DestroyMpg123>;
