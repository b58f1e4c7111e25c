// A file of shapes, open in the library and in the reference.
#pragma once

#include "DataAccessSupport.h"
#include "Reference.h"

namespace fuzz {

struct Shapes {
    static Shapes& Get() {
        static Shapes shapes;
        return shapes;
    }

    DatabaseHandle database;
    Reference reference;

private:
    Shapes() : reference(Make()) {
        Require(openDatabase(database.Address(), Path().c_str(), 1, 0, 0, "", nullptr) == 1,
                "the file of shapes opens");
    }

    static std::string Path() { return Folder().File("shapes.db3"); }
    static std::string Make() {
        testsupport::CreateCatalogue(Path(), 5);
        return Path();
    }
};

} // namespace fuzz
