#pragma once

#include <cstdint>

// How much of what lies behind shines through: by layer, by block, or an alpha value from 0 (clear) to 255
// (solid). Users see percent, 0 solid to 100 clear.
class OdCmTransparency {
  public:
    enum Method : std::uint8_t { kByLayer = 0, kByBlock = 1, kByAlpha = 2 };

    constexpr OdCmTransparency() = default; // by layer
    static constexpr OdCmTransparency byBlock() { return {kByBlock, 255}; }
    static constexpr OdCmTransparency byAlpha(std::uint8_t alpha) { return {kByAlpha, alpha}; }
    // Values outside 0..100 are taken as the nearer end.
    static constexpr OdCmTransparency byPercent(int percent) {
        return byAlpha(static_cast<std::uint8_t>((100 - (percent < 0     ? 0
                                                         : percent > 100 ? 100
                                                                         : percent)) *
                                                 255 / 100));
    }

    constexpr Method method() const { return m_method; }
    constexpr bool isByLayer() const { return m_method == kByLayer; }
    constexpr bool isByBlock() const { return m_method == kByBlock; }
    constexpr bool isByAlpha() const { return m_method == kByAlpha; }
    // 255 for by layer and by block.
    constexpr std::uint8_t alpha() const { return m_alpha; }
    // The percent that byPercent makes this alpha of; in between, the next smaller one. 0 for by layer and by
    // block.
    constexpr int percent() const { return 100 - (m_alpha * 100 + 254) / 255; }
    constexpr bool isSolid() const { return m_alpha == 255; }

    // The number files hold: the method in bits 24-31, the alpha value in bits 0-7. Unknown methods are by
    // layer.
    static constexpr OdCmTransparency fromDxf(std::int64_t value) {
        switch (value >> 24 & 0xFF) {
        case kByBlock:
            return byBlock();
        case kByAlpha:
            return byAlpha(static_cast<std::uint8_t>(value & 0xFF));
        default:
            return {};
        }
    }
    constexpr std::int32_t dxfValue() const {
        return m_method == kByLayer ? 0 : m_method << 24 | (m_method == kByAlpha ? m_alpha : 0);
    }

    friend constexpr bool operator==(const OdCmTransparency&, const OdCmTransparency&) = default;

  private:
    constexpr OdCmTransparency(Method method, std::uint8_t alpha) : m_method(method), m_alpha(alpha) {}

    Method m_method = kByLayer;
    std::uint8_t m_alpha = 255;
};
