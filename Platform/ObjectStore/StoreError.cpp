#include "Platform/ObjectStore/StoreError.h"

#include <utility>

namespace quorvel {

StoreError::StoreError(Code code, QString description)
    : m_code(code)
    , m_description(std::move(description))
{}

} // namespace quorvel
