#pragma once

#include <functional>
#include <optional>
#include <string>

#include "automation/json.h"
#include "controls/frontend.h"
#include "controls/menubar.h"

namespace cu {

// A box, dialog or open popup that waits for an answer, which it accepts, or rejects with Refused.
struct Modal {
  JsonObject description;
  std::function<void(const Json& answer)> take;
  std::function<void(const std::string& tool)> chooseTool;  // of an open popup only
};

Modal messageModal(const MessageBox& box, Answer& result);
Modal errorModal(const Error& error);
Modal folderModal(const std::string& title, const std::optional<std::string>& start, std::string& result);
Modal printerModal(std::optional<PrinterChoice>& result);
Modal saveModal(const std::string& title, const std::string& start, const std::string& filter,
                std::optional<std::string>& result);
Modal logModal(const LogTable& log);
Modal previewModal(const std::string& title, const std::vector<std::string>& pages);
Modal popupModal(const MenuBar& bar, const std::string& band, std::string& chosen);

// Raises Refused unless the user can choose the tool now.
void requireTool(const MenuBar& bar, const std::string& tool);

}  // namespace cu
