#pragma once

class Binding;
class Control;
class FormWindow;

// Finds the face of a control in the window, or makes it where the window leaves that to the control,
// and ties the two. Null if the window has no face of that name and kind.
Binding* bindControl(FormWindow& window, Control& control);
