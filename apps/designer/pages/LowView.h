#pragma once

#include <QSize>

#include <utility>

/// A list or text that asks for a few lines and takes what room there is.
template <typename TBase> class TLowView : public TBase
{
public:
    using TBase::TBase;

    [[nodiscard]] QSize sizeHint() const override { return {200, Lines * this->fontMetrics().lineSpacing()}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

private:
    static constexpr int Lines = 6;
};
