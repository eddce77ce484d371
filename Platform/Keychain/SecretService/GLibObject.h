#pragma once

#include <glib-object.h>
#include <memory>

namespace quorvel {

struct GLibObjectUnref
{
    void operator()(gpointer object) const noexcept { g_object_unref(object); }
};

/// The one reference that we hold to an object of GLib's.
template <class Type>
using GLibObject = std::unique_ptr<Type, GLibObjectUnref>;

} // namespace quorvel
