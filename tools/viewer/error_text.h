/// @file
/// Failures as sentences that say what to do.
#pragma once

#include <QtCore/QString>
#include <exception>

namespace orvalix {

/// What a user was about to do when it failed.
enum class Purpose { kOpening, kSaving };

/// @param failure a CErr3D or a std::exception
QString AdviceOn(const std::exception_ptr& failure, Purpose purpose);

}  // namespace orvalix
