// Whether the order file can take the tax out of a price.
#pragma once

#include "control/remembered.h"
#include "control/shop.h"

namespace control {

enum class VatRateIs { Usable, Missing, Fatal };  // Fatal: it ends the export

class VatRates {
  public:
    explicit VatRates(const Shop& shop);

    [[nodiscard]] VatRateIs Of(const platform::Value& vatCode);

  private:
    Remembered<VatRateIs> rates_;
};

}  // namespace control
