// The small shop with everything that a routine of the system is handed.
#pragma once

#include <string>
#include <string_view>

#include "platform/text_file.h"
#include "tests/support/store/store_shop.h"
#include "ui/frm_main.h"
#include "ui/run_state.h"

namespace support {

class TestShop : public StoreShop {
  public:
    // A file of the shop as the operator would read it: UTF-8, lines ended by "\n"; a carriage
    // return that does not stand at a line's end stays visible.
    [[nodiscard]] std::string Text(std::string_view fileName) const;

    platform::TextFiles textFiles;
    ui::RunState runState;
    ui::frmMain window{settings, theOperator};
};

}  // namespace support
