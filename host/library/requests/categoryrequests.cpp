// SPDX-License-Identifier: MIT
#include "host/library/requests/categoryrequests.h"

#include "host/library/database/categorytable.h"
#include "host/library/records/tagname.h"
#include "host/library/requests/requestchecks.h"

void categoryrequests::create(LibraryRequest& request, const QString& name)
{
    requestchecks::requireName(name);
    requestchecks::requireFreeCategoryName(request.database, name, 0);
    request.change().categoriesCreated.append(categorytable::insertCategory(request.database, name));
}

void categoryrequests::rename(LibraryRequest& request, qint64 id, const QString& name)
{
    CategoryRow category = requestchecks::requireUserCategory(request.database, id);
    requestchecks::requireName(name);
    requestchecks::requireFreeCategoryName(request.database, name, id);
    if (category.name == tagname::kept(name))
        return;
    categorytable::updateName(request.database, id, name);
    category.name = tagname::kept(name);
    request.change().categoriesRenamed.append(category);
}

void categoryrequests::remove(LibraryRequest& request, qint64 id)
{
    (void)requestchecks::requireUserCategory(request.database, id);
    categorytable::markDeleted(request.database, id, request.changeId);
    request.change().categoriesRemoved.append(id);
}
