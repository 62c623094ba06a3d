// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/packagechoice.h"

#include "ui/packages/packagetree.h"

bool PackageChoice::accepts(const PackageInfo &package) const
{
    const auto isChosen = [](const QStringList &chosen, const QString &value) {
        return chosen.isEmpty() || chosen.contains(value);
    };
    return isChosen(architectures, package.architecture) && isChosen(components, package.component)
           && isChosen(sections, package.section)
           && (signature == AnySignature || package.isSigned() == (signature == Signed));
}

PackageChoice PackageChoice::valuesOf(const PackageTree &tree)
{
    PackageChoice values;
    for (const int component : tree.root().children) {
        values.components << tree.item(component).code;
        for (const int section : tree.item(component).children) {
            values.sections << tree.item(section).code;
            for (const int package : tree.item(section).children) {
                const QString &architecture = tree.item(package).package->architecture;
                if (!values.architectures.contains(architecture))
                    values.architectures << architecture;
            }
        }
    }
    for (QStringList *list : {&values.architectures, &values.components, &values.sections}) {
        list->sort();
        list->removeDuplicates();
    }
    return values;
}
