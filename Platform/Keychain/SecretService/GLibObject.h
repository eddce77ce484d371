#pragma once

#include <glib-object.h>
#include <memory>

namespace quorvel {

struct GLibObjectUnref
{
    void operator()(gpointer object) const noexcept { g_object_unref(object); }
};

/// Holds one reference to a GLib object.
template <class Type>
using GLibObject = std::unique_ptr<Type, GLibObjectUnref>;

} // namespace quorvel
