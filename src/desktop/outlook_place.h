#pragma once

class QBoxLayout;

namespace cu::desktop {

class ContentArea;
class FormWindow;

// The last stage: the overview of what the form's main action will do, with the controls.
void addOutlook(FormWindow& window, QBoxLayout& column, ContentArea* area);

}  // namespace cu::desktop
