// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A people store of its own in a temporary folder, with a me identifier under a key no other test uses.
#include "TestSupport.h"
#include "model/PeopleStore.h"
#include "model/Person.h"

#include <QUuid>
#include <memory>

class PeopleFixture
{
public:
    PeopleFixture()
        : store(TestSupport::temporaryDirectory() + QStringLiteral("/people.vcf"))
    {
        store.setMeIdentifierKey(QStringLiteral("testMe-") + QUuid::createUuid().toString(QUuid::WithoutBraces));
    }

    PersonRef person(const QString &first, const QString &last)
    {
        PersonRecord fields;
        fields.firstName = first;
        fields.lastName = last;
        return Person::create(store.createRecord(fields));
    }

    PeopleStore store;
};
