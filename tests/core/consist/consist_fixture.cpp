#include "consist_fixture.h"

#include "core/consist/consist_reader.h"
#include "core/consist/editing.h"

namespace rakeyard::test {

void ConsistTest::add(std::initializer_list<std::string> units) {
    for (const std::string& u : units) {
        const std::string line = "Some unit                      [AA] x        ^" + u.substr(4);
        if (u.starts_with("eng:"))
            addEngineOfLine(*app, line);
        else
            addWagonOfLine(*app, line);
    }
}

void ConsistTest::loadText(const std::string& name, const std::string& text) {
    state().consistToLoad = msts.write("TRAINS/CONSISTS/" + name, text);
    (void)loadConsistFile(*app, fake.services);
}

}  // namespace rakeyard::test
