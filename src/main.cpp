// The Tallix desktop program.
#include "ui/tallix_app.h"

int main(int argc, char** argv) {
    tallix::ui::CTallixApp app;
    return app.run(argc, argv);
}
