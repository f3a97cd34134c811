       identification division.
       program-id. shared1.
       procedure division.
           copy shared.
           .
           copy shared.
           perform main-line.
       main-line.
           goback.
