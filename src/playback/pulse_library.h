// SPDX-License-Identifier: GPL-3.0-or-later
// The functions of libpulse that the player uses, without their prefix.
#pragma once

#include "platform/loaded_library.h"

#include <pulse/pulseaudio.h>

struct Pulse : LoadedLibrary {
    Pulse() : LoadedLibrary(QStringLiteral("pulse"), 0) {}
    Function<decltype(::pa_mainloop_new)> mainloop_new{*this, "pa_mainloop_new"};
    Function<decltype(::pa_mainloop_free)> mainloop_free{*this, "pa_mainloop_free"};
    Function<decltype(::pa_mainloop_get_api)> mainloop_get_api{*this, "pa_mainloop_get_api"};
    Function<decltype(::pa_mainloop_prepare)> mainloop_prepare{*this, "pa_mainloop_prepare"};
    Function<decltype(::pa_mainloop_poll)> mainloop_poll{*this, "pa_mainloop_poll"};
    Function<decltype(::pa_mainloop_dispatch)> mainloop_dispatch{*this, "pa_mainloop_dispatch"};
    Function<decltype(::pa_mainloop_wakeup)> mainloop_wakeup{*this, "pa_mainloop_wakeup"};
    Function<decltype(::pa_proplist_new)> proplist_new{*this, "pa_proplist_new"};
    Function<decltype(::pa_proplist_free)> proplist_free{*this, "pa_proplist_free"};
    Function<decltype(::pa_proplist_sets)> proplist_sets{*this, "pa_proplist_sets"};
    Function<decltype(::pa_context_new_with_proplist)> context_new_with_proplist{*this, "pa_context_new_with_proplist"};
    Function<decltype(::pa_context_connect)> context_connect{*this, "pa_context_connect"};
    Function<decltype(::pa_context_disconnect)> context_disconnect{*this, "pa_context_disconnect"};
    Function<decltype(::pa_context_unref)> context_unref{*this, "pa_context_unref"};
    Function<decltype(::pa_context_get_state)> context_get_state{*this, "pa_context_get_state"};
    Function<decltype(::pa_context_set_state_callback)> context_set_state_callback{*this,
                                                                                   "pa_context_set_state_callback"};
    Function<decltype(::pa_channel_map_init_extend)> channel_map_init_extend{*this, "pa_channel_map_init_extend"};
    Function<decltype(::pa_stream_new)> stream_new{*this, "pa_stream_new"};
    Function<decltype(::pa_stream_connect_playback)> stream_connect_playback{*this, "pa_stream_connect_playback"};
    Function<decltype(::pa_stream_disconnect)> stream_disconnect{*this, "pa_stream_disconnect"};
    Function<decltype(::pa_stream_unref)> stream_unref{*this, "pa_stream_unref"};
    Function<decltype(::pa_stream_get_state)> stream_get_state{*this, "pa_stream_get_state"};
    Function<decltype(::pa_stream_set_state_callback)> stream_set_state_callback{*this, "pa_stream_set_state_callback"};
    Function<decltype(::pa_stream_set_started_callback)> stream_set_started_callback{*this,
                                                                                     "pa_stream_set_started_callback"};
    Function<decltype(::pa_stream_set_moved_callback)> stream_set_moved_callback{*this, "pa_stream_set_moved_callback"};
    Function<decltype(::pa_stream_set_suspended_callback)> stream_set_suspended_callback{
        *this, "pa_stream_set_suspended_callback"};
    Function<decltype(::pa_stream_set_latency_update_callback)> stream_set_latency_update_callback{
        *this, "pa_stream_set_latency_update_callback"};
    Function<decltype(::pa_stream_set_name)> stream_set_name{*this, "pa_stream_set_name"};
    Function<decltype(::pa_stream_writable_size)> stream_writable_size{*this, "pa_stream_writable_size"};
    Function<decltype(::pa_stream_write)> stream_write{*this, "pa_stream_write"};
    Function<decltype(::pa_stream_cork)> stream_cork{*this, "pa_stream_cork"};
    Function<decltype(::pa_stream_trigger)> stream_trigger{*this, "pa_stream_trigger"};
    Function<decltype(::pa_stream_drain)> stream_drain{*this, "pa_stream_drain"};
    Function<decltype(::pa_stream_update_timing_info)> stream_update_timing_info{*this, "pa_stream_update_timing_info"};
    Function<decltype(::pa_stream_get_timing_info)> stream_get_timing_info{*this, "pa_stream_get_timing_info"};
    Function<decltype(::pa_stream_get_time)> stream_get_time{*this, "pa_stream_get_time"};
    Function<decltype(::pa_stream_get_device_name)> stream_get_device_name{*this, "pa_stream_get_device_name"};
    Function<decltype(::pa_operation_unref)> operation_unref{*this, "pa_operation_unref"};
};

/// Loaded by the first call.
inline const Pulse &pulse()
{
    static const Pulse library;
    return library;
}
