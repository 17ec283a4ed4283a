#pragma once

class Binding;
class Control;
class FormWindow;

// Binds a control to its widget in the window. Menus, their entries and the buttons of a toolbar are created
// here. Null if the window has no widget of that name and kind.
Binding* bindControl(FormWindow& window, Control& control);
