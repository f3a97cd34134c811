       identification division.
       program-id. shared2.
       procedure division.
           copy shared.
           .
           copy shared.
           perform nowhere.
           goback.
