      * Of the copybook.
           05  :tag:-NAME     pic x(30).
           05  number    pic 9(4)  value 12.
