#pragma once

#include "platform/drawing/entities/EntityProperties.h"

#include <span>

namespace tv::dwg {

// The properties every entity has.
std::span<const EntityProperty> commonProperties();
// The dimension variables as properties of a dimension, leader or tolerance.
std::span<const EntityProperty> dimensionVariables();

} // namespace tv::dwg
