#include "automation/reach.h"

#include "controls/band.h"
#include "controls/datebox.h"
#include "controls/grid.h"
#include "controls/listbox.h"
#include "controls/menubar.h"
#include "controls/numericbox.h"
#include "controls/picker.h"
#include "controls/print_control.h"
#include "controls/selector.h"
#include "controls/tabs.h"
#include "controls/textbox.h"

namespace cu {

std::string fullName(const Control& control) { return control.form().name() + "." + control.name(); }

void refuse(const Control& control, const std::string& why) { throw Refused{fullName(control) + ": " + why}; }

void requireReach(const Control& control) {
  if (!control.visible()) refuse(control, "il controllo è nascosto");
  if (!control.enabled()) refuse(control, "il controllo è disabilitato");
  for (const Frame* frame = control.frame(); frame != nullptr; frame = frame->frame()) {
    const std::string where = "il riquadro " + frame->name() + " che lo contiene è ";
    if (!frame->onStage()) refuse(control, where + "fuori scena");
    if (!frame->visible()) refuse(control, where + "nascosto");
    if (!frame->enabled()) refuse(control, where + "disabilitato");
  }
}

void RefusingVisitor::visit(Frame& control) { refuse(control, why_); }
void RefusingVisitor::visit(Label& control) { refuse(control, why_); }
void RefusingVisitor::visit(Link& control) { refuse(control, why_); }
void RefusingVisitor::visit(Button& control) { refuse(control, why_); }
void RefusingVisitor::visit(Option& control) { refuse(control, why_); }
void RefusingVisitor::visit(Check& control) { refuse(control, why_); }
void RefusingVisitor::visit(TextBox& control) { refuse(control, why_); }
void RefusingVisitor::visit(ListBox& control) { refuse(control, why_); }
void RefusingVisitor::visit(Selector& control) { refuse(control, why_); }
void RefusingVisitor::visit(DateBox& control) { refuse(control, why_); }
void RefusingVisitor::visit(AmountBox& control) { refuse(control, why_); }
void RefusingVisitor::visit(NumberBox& control) { refuse(control, why_); }
void RefusingVisitor::visit(Picker& control) { refuse(control, why_); }
void RefusingVisitor::visit(Tabs& control) { refuse(control, why_); }
void RefusingVisitor::visit(Grid& control) { refuse(control, why_); }
void RefusingVisitor::visit(SideBand& control) { refuse(control, why_); }
void RefusingVisitor::visit(MenuBar& control) { refuse(control, why_); }
void RefusingVisitor::visit(PrintControl& control) { refuse(control, why_); }

}  // namespace cu
