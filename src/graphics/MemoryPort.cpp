#include "graphics/MemoryPort.h"

namespace corvane {

MemoryPort::MemoryPort(Tracing tracing) : MemoryPort(kUnitsPerInch, 96, tracing) {}

MemoryPort::MemoryPort(int32_t unitsPerInch, int32_t dpi, Tracing tracing)
    : GraphicPort(unitsPerInch, unitsPerInch, dpi, dpi) {
    if (tracing == Tracing::On) SetTrace(&_lines);
}

}  // namespace corvane
