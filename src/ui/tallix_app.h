#pragma once

namespace tallix::ui {

// The application object: sets the program up, keeps other instances off
// its data folder, and runs the main window until it closes.
class CTallixApp {
  public:
    int run(int argc, char** argv);
};

}  // namespace tallix::ui
